#pragma once

#include "base/hostinterface.h"

#include <string>

namespace zel::launcher {

/// The library that is the box. It stays loaded until the process ends.
struct BoxLibrary
{
    EntryPointFunction entry = nullptr;
    std::string error; ///< why there is none, for the person who started us
};

/// Loads it from the launcher's own place: `../lib` in a build tree, `../lib/zelbox` when installed.
BoxLibrary loadBox();

} // namespace zel::launcher
