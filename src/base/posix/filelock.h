#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"

#include <string>

namespace zel::posix {

/// Whole-file locks between processes (flock). The kernel drops a lock with its last descriptor, so a killed
/// process never leaves one behind. All functions leave errno set when they fail.

/// Opens or makes the file with mode 0600; a symbolic link is refused. Empty on failure. Any thread.
UniqueFd openLockFile(const std::string &path);

/// True when this descriptor now holds the lock; errno EWOULDBLOCK means that another one does. Any thread.
bool tryLock(int fd);

/// Waits for the lock, at most until `deadline` (errno ETIMEDOUT then). Borrows SIGALRM while it has to wait,
/// so no two threads may wait at once.
bool lockUntil(int fd, Deadline deadline);

} // namespace zel::posix
