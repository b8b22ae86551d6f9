#pragma once

namespace zel::launcher {

/// Starts the real box in private temporary folders, where it neither disturbs nor meets one that runs, waits
/// until it has opened its window and quit by itself, and prints how it went. Returns the exit code: 0 only
/// when it worked. `argv` is what the box is started with, ending in a null pointer.
int runSelfTest(char **argv);

} // namespace zel::launcher
