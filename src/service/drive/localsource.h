#pragma once

#include "base/posix/uniquefd.h"
#include "driveresult.h"

/// Files of this machine that go into a drive. Any thread.
namespace zel::service {

/// Opens a regular file for reading, also through a symbolic link. Never waits for somebody at the other end
/// of a pipe or for a device. Denied on a made-up file system.
DriveResult<posix::UniqueFd> openLocalFile(const QString &path);

/// Whether a path lies where the system makes files up as they are read (proc, sys and their like): they have
/// no size, may never end, and hold nothing that is worth keeping.
bool isMadeUp(const QString &path);

/// How many entries a folder has that no drive can hold, as their names are no UTF-8; Qt's listings pass over
/// them. 0 for a folder that cannot be read.
int countUnstorable(const QString &folder, bool withHidden);

} // namespace zel::service
