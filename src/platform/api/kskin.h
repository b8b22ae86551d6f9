#pragma once

#include "zelplatform_export.h"

#include <QColor>
#include <QObject>

/// The running skin: light or dark, ordinary or high contrast, its colours, and what the desktop says of
/// motion and the size of texts. GUI thread; any number may exist, all show the same state. Light or dark
/// follows the setting "plugins/zelbox/theme" ("auto", "light", "dark"; default "auto": the desktop); the
/// rest follows the desktop alone, from soon after the start of the event loop.
class ZELPLATFORM_EXPORT KSkin : public QObject
{
    Q_OBJECT
public:
    enum class Theme { Auto, Light, Dark };
    Q_ENUM(Theme)

    /// Colours by purpose. Every text colour has a contrast of at least 4.5:1 on Window, Surface, Hover and
    /// Selected, in high contrast 7:1; Accent and ControlBorder stand out from these grounds by 3:1.
    enum class Color {
        Window,   ///< ground of navigation and title bar
        Surface,  ///< ground of lists, pages and dialogs
        Hover,    ///< row or button under the pointer
        Selected, ///< selected row
        Border,   ///< hairlines between parts; they carry no meaning
        Text,
        TextSecondary, ///< times, hints, headers
        TextDisabled,  ///< missing files, disabled controls; the only text colour below 4.5:1
        Accent,        ///< links, focus ring, selected navigation
        OnAccent,      ///< text on Accent
        Badge,         ///< red dots, errors
        OnBadge,
        Shadow,
        ControlBorder, ///< edges of fields, boxes and switches
        Tip,           ///< ground of tool tips
        OnTip,
    };
    Q_ENUM(Color)
    static constexpr int ColorCount = int(Color::OnTip) + 1;

    explicit KSkin(QObject *parent = nullptr);
    ~KSkin() override;

    static bool isDark();
    static QColor color(Color role);
    /// Of a given variant, for tests and pictures.
    static QColor color(Color role, bool dark, bool highContrast = false);

    static Theme theme();
    static void setTheme(
        Theme theme); ///< stores the choice, changes the application palette, tells every KSkin

    static bool highContrast();           ///< the desktop asks for it
    static bool animationsEnabled();      ///< the desktop does not forbid them
    static int animationDuration(int ms); ///< `ms`, or 0 when nothing is to move
    /// The desktop's factor for texts (0.5 to 3; 1 by default), wherever it comes from. Already part of
    /// KLiteStyle::dpiFactor() and of the application font, so most code has no need of it.
    static qreal textScale();

Q_SIGNALS:
    void themeChanged(bool dark); ///< colours have changed: light or dark, or the contrast
    /// KLiteStyle::dpiFactor() has changed, through the desktop's text scale or the screen's dpi; the
    /// application font already follows. Sizes that were asked for before are stale.
    void metricsChanged();
};
