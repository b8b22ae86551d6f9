// The module behind traymenu.h, with libdbusmenu-qt.

#include "tray/ui/traymenu.h"

#include <QDBusConnection>
#include <QMenu>

#include <dbusmenuexporter.h>

extern "C" Q_DECL_EXPORT QObject *ZEL_TRAYMENU_SYMBOL(
    const char *path, QMenu *menu, const QDBusConnection &bus)
{
    return new DBusMenuExporter(QLatin1String(path), menu, bus); // the menu's child
}
