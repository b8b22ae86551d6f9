#pragma once

#include "zelplatform_export.h"

#include <QString>

namespace krt {

/// Installs and removes the translators of one catalogue. GUI thread.
/// Catalogues are `<dirs>/mui/<locale>/<name>.qm` below the installation and the user's additions, plus Qt's
/// own `qtbase` catalogue. The locale is the setting "plugins/zelbox/language", else the desktop's languages
/// in order.
class ZELPLATFORM_EXPORT KAppTranslators
{
public:
    /// Installs catalogue `name`; returns false when no language of the user has one (texts stay English).
    /// A second call for the same name replaces the first.
    static bool installTranslation(const QString &name);

    /// Removes what installTranslation(name) installed. Does nothing once the application object is gone,
    /// because Qt has dropped the translators by then.
    static void uninstallTranslation(const QString &name);

    /// The language of the catalogue that was installed last, as its folder is called ("zh_CN"); empty when
    /// there is none, so that texts are English.
    static QString language();
};

} // namespace krt
