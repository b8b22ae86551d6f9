#pragma once

// What every test has without including it (cmake/ZelTest.cmake): QtTest with all of QtCore, the widgets
// where it links them, the everyday headers of the standard library and of POSIX, data tables, texts in
// quotes, and words in what fails, which must be known before QtTest's header.
#include "support/words.h"

#include "support/filled.h"
#include "support/table.h"
#include "support/text.h"

#include <QtTest>
#ifdef QT_WIDGETS_LIB
#include <QtWidgets>
#endif

#include <cerrno>
#include <csignal>
#include <optional>
#include <set>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
