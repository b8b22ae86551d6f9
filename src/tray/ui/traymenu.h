#pragma once

class QDBusConnection;
class QMenu;
class QObject;

/// Offers a menu on the bus (com.canonical.dbusmenu), for the tray to show as its own. GUI thread. A module,
/// loaded on first use, because the library behind it is of no use to a start without a tray.
namespace zel::tray {

inline constexpr char MenuPath[] = "/MenuBar";

/// As long as the returned object lives, `menu`, its parent, is at MenuPath. Null when the module is missing.
QObject *exportMenu(QMenu *menu, const QDBusConnection &bus);

/// The module's one symbol: a function `QObject *(const char *path, QMenu *, const QDBusConnection &)`.
#define ZEL_TRAYMENU_SYMBOL zelTrayMenu

} // namespace zel::tray
