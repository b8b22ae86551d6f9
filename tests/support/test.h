#pragma once

// What every test has without including it (cmake/ZelTest.cmake): QtTest with all of QtCore, the everyday
// headers of the standard library, data tables, texts in quotes, and words in what fails, which must be known
// before QtTest's header.
#include "support/words.h"

#include "support/filled.h"
#include "support/table.h"
#include "support/text.h"

#include <QtTest>
#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>
