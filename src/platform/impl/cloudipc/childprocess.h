#pragma once

#include <QStringList>
#include <sys/types.h>

namespace zel::cloudipc {

/// Number under which a started program finds the descriptor that it was handed.
inline constexpr int handedFd = 3;

/// Starts a program that outlives us: in a session of its own, with nothing of ours open but `handed` (as
/// handedFd) and, where it leads to the journal, a file or a terminal, the error output. It never becomes a
/// zombie while the application object lives. Returns its process id, -1 with errno on failure. GUI thread.
pid_t startDetached(const QString &program, const QStringList &arguments, int handed);

} // namespace zel::cloudipc
