#pragma once

#include <functional>

class QObject;

/// The session bus without waiting for it: its first use blocks until it answers, which with a dead bus may
/// take long.
namespace zel::sessionbus {

/// Calls `opened` once, on a later turn of the GUI thread's loop, when QDBusConnection::sessionBus() can be
/// used without a wait; it may turn out not to be connected. Not if `context` is gone by then, nor when the
/// program ends before. GUI thread.
void open(QObject *context, std::function<void()> opened);

} // namespace zel::sessionbus
