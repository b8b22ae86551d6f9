#include "tray/ui/traymenu.h"

#include "base/boxmodule.h"

#define ZEL_TEXT(name) #name
#define ZEL_NAME(name) ZEL_TEXT(name)

QObject *zel::tray::exportMenu(QMenu *menu, const QDBusConnection &bus)
{
    using Maker = QObject *(*)(const char *, QMenu *, const QDBusConnection &);
    static const auto make =
        reinterpret_cast<Maker>(boxModuleFunction("libzeltraymenu.so", ZEL_NAME(ZEL_TRAYMENU_SYMBOL)));
    return make ? make(MenuPath, menu, bus) : nullptr;
}
