#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"

#include <string>

namespace zel::posix {

/// Stream sockets in the file system between processes of one user. All functions are thread-safe and leave
/// errno set when they fail. Descriptors are close-on-exec.

/// Binds and listens on `path` with mode 0600; a stale socket file there is replaced. The caller must hold a
/// lock that excludes a second listener. Returns an empty descriptor on failure (also when the path is too
/// long for a socket).
UniqueFd listenUnix(const std::string &path, int backlog = 64);

/// Connects and gives a blocking descriptor. Unix sockets answer at once unless the listener's queue is full;
/// then it waits at most until `deadline` (errno EAGAIN). Empty on failure; ECONNREFUSED or ENOENT means that
/// nobody listens. A path that begins with a zero byte is an abstract name.
UniqueFd connectUnixUntil(const std::string &path, Deadline deadline);

/// As connectUnixUntil, but never waits and gives a non-blocking descriptor.
UniqueFd connectUnixNow(const std::string &path);

/// Accepts one connection with SOCK_NONBLOCK; empty when none waits or on failure.
UniqueFd acceptUnix(int listener);

/// True when the other end runs under our effective user id (SO_PEERCRED). Ask before reading a byte.
bool peerIsSameUser(int fd);

} // namespace zel::posix
