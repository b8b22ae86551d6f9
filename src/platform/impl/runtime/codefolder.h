#pragma once

#include <QString>

namespace zel::platform {

/// The folder of the shared library that this code is in, or of the program when it is linked into one. Any
/// thread.
QString codeFolder();

} // namespace zel::platform
