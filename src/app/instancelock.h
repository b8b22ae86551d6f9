#pragma once

#include <QString>

/// The per-user lock that tells other programs that a box runs in a host. GUI thread.
namespace zel {

/// `<temporary folder>/__#_ZELBOX_INVELA_INSTANCE_KEY_#__<real uid>.lock`
QString instanceLockPath();

/// Opens the lock file and asks for a write lock over all of it, without waiting. Whether another process has
/// it is not looked at, and the descriptor stays open until the process ends: an fcntl lock falls when the
/// process closes any descriptor of the file, so nothing else may open it. What is not a plain file of ours,
/// in a folder where everybody may put something, is left alone and logged.
void takeInstanceLock();

} // namespace zel
