#pragma once

#include "launcher/commandline.h"

#include <string>

namespace zel::launcher {

/// Makes this process the user's box, or hands its command line to the one that runs, and returns the exit
/// code. `argc` and `argv` are what the box gets to see.
int runBox(int argc, char **argv, const CommandLine &commandLine);

} // namespace zel::launcher
