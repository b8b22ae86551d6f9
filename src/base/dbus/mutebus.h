#pragma once

#include <chrono>

/// A session bus that takes connections and never answers: a daemon that hangs or is stopped.
namespace zel::sessionbus {

/// Whether whoever listens at the session bus's address says nothing for `limit`. An answer takes less than a
/// millisecond. False also when nobody listens, and for kinds of address that cannot be asked so (other than
/// Unix sockets): both show at once when the bus is opened. Blocks at most for `limit`; any thread.
bool isMute(std::chrono::milliseconds limit);

/// Spares this process a mute bus: QDBusConnection::sessionBus() is not connected then, at no cost and for
/// good. Qt and its plugins open the bus on the GUI thread when the application object or the first window is
/// made, and would wait there for half a minute at a time. Programs that are started later get the address as
/// it is. Before the application object; blocks at most for `limit`. True when the bus was given up.
bool giveUpIfMute(std::chrono::milliseconds limit);

} // namespace zel::sessionbus
