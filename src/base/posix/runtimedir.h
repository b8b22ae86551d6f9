#pragma once

#include <string>

namespace zel::posix {

/// The per-user folder for sockets and locks. Thread-safe.
struct RuntimeDir
{
    std::string path;  ///< without a trailing slash; empty on failure
    std::string error; ///< why there is none, for the log
};

/// `$XDG_RUNTIME_DIR/zelbox`, made with mode 0700. Without an XDG_RUNTIME_DIR that is absolute, exists, is
/// ours (XDG Base Directory Specification) and short enough for a socket's path it is
/// `<temporary folder>/zelbox-<uid>`. A folder that is not ours, not a real folder, or open to others and
/// cannot be closed to them is refused.
RuntimeDir openRuntimeDir();

} // namespace zel::posix
