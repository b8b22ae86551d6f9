#include "mini/layershell/layershell.h"

#include "base/boxmodule.h"

#include <QGuiApplication>
#include <QWidget>

#define ZEL_TEXT(name) #name
#define ZEL_NAME(name) ZEL_TEXT(name)

namespace zel::layershell {

std::unique_ptr<Surface> surfaceFor(QWidget *window)
{
    using Maker = Surface *(*)();
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return nullptr;
    static const auto make =
        reinterpret_cast<Maker>(boxModuleFunction("libzellayershell.so", ZEL_NAME(ZEL_LAYERSHELL_SYMBOL)));
    std::unique_ptr<Surface> surface(make ? make() : nullptr);
    if (surface) {
        // How Qt 5 is told to leave a window's role in the desktop to us. It looks at the variable again
        // and again, and only for windows with this flag, of which the box has no other.
        qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
        window->setWindowFlag(Qt::BypassWindowManagerHint);
    }
    return surface;
}

} // namespace zel::layershell
