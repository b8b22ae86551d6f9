#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"

#include <string>

namespace zel::posix {

/// Whole-file locks between processes (flock). The kernel drops a lock with its last descriptor, so a killed
/// process never leaves one behind. All functions leave errno set when they fail.

/// Opens or makes the file with mode 0600. Empty on failure; errno EINVAL means that something else than a
/// plain file of ours is there. Never waits for a pipe's other end. Any thread.
UniqueFd openLockFile(const std::string &path);

/// Whether it is a plain file that belongs to us, and so can be locked without anybody's leave. Any thread.
bool isOwnPlainFile(int fd);

/// True when this descriptor now holds the lock; errno EWOULDBLOCK means that another one does. Any thread.
bool tryLock(int fd);

/// Waits for the lock, at most until `deadline` (errno ETIMEDOUT then). Borrows SIGALRM while it has to wait,
/// so no two threads may wait at once.
bool lockUntil(int fd, Deadline deadline);

} // namespace zel::posix
