#pragma once

namespace zel::posix {

/// Turns the first SIGTERM, SIGINT or SIGHUP into a readable descriptor, so that the program can end in
/// order; the second one then has its usual effect. A signal that was ignored at the start stays ignored.
/// Child processes are not affected: nothing is blocked, and handlers do not outlive exec.
///
/// Returns the descriptor (close-on-exec, non-blocking, lives as long as the process), -1 with errno on
/// failure. Call once, before other threads exist.
int catchExitSignals();

} // namespace zel::posix
