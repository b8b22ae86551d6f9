#pragma once

#include "zelplatform_export.h"

#include <QColor>
#include <QObject>

/// The running skin: light or dark, and its colours. GUI thread; any number may exist, all show the same
/// state. Follows the setting "plugins/zelbox/theme" ("auto", "light", "dark"; default "auto": the desktop's
/// palette).
class ZELPLATFORM_EXPORT KSkin : public QObject
{
    Q_OBJECT
public:
    enum class Theme { Auto, Light, Dark };
    Q_ENUM(Theme)

    /// Colours by purpose. Every text colour has a contrast of at least 4.5:1 on Window, Surface and Hover.
    enum class Color {
        Window,   ///< ground of navigation and title bar
        Surface,  ///< ground of lists, pages and dialogs
        Hover,    ///< row or button under the pointer
        Selected, ///< selected row
        Border,   ///< hairlines
        Text,
        TextSecondary, ///< times, hints, headers
        TextDisabled,  ///< missing files; the only text colour below 4.5:1
        Accent,        ///< links, focus ring, selected navigation
        OnAccent,      ///< text on Accent
        Badge,         ///< red dots, errors
        OnBadge,
        Shadow,
    };
    Q_ENUM(Color)
    static constexpr int ColorCount = int(Color::Shadow) + 1;

    explicit KSkin(QObject *parent = nullptr);
    ~KSkin() override;

    static bool isDark();
    static QColor color(Color role);
    static QColor color(Color role, bool dark); ///< of a given variant, for tests and pictures

    static Theme theme();
    static void setTheme(
        Theme theme); ///< stores the choice, changes the application palette, tells every KSkin

Q_SIGNALS:
    void themeChanged(bool dark);
};
