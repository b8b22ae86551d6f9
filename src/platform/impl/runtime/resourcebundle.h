#pragma once

#include <QString>

namespace zel::platform {

/// The skin's resource file, registered with Qt's resource system; one at a time. GUI thread.
class ResourceBundle
{
public:
    static bool use(const QString &file); ///< replaces the one in use; false when it cannot be registered
    static void drop();
};

} // namespace zel::platform
