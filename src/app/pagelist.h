#pragma once

#include "mainwindow/pageinfo.h"

namespace zel {

/// The pages of the main window: the only place that names them all.
PageList boxPages();

} // namespace zel
