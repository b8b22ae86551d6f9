#pragma once

#include "desktoptheme.h"
#include "kskin.h"

#include <QList>
#include <optional>

class QScreen;

namespace zel::platform {

/// What every KSkin of the process shows. GUI thread.
class SkinState
{
public:
    static SkinState &instance();

    /// Takes the desktop's first guess from the application palette and lays the skin's own palette over it.
    void adoptPlatformPalette();

    bool isDark();
    KSkin::Theme theme();
    void setTheme(KSkin::Theme theme);
    const DesktopChoices &desktop() const { return m_choices; }
    void setDesktop(const DesktopChoices &choices); ///< as the desktop says later

    void add(KSkin *skin); ///< the first one starts to follow the desktop, once the event loop runs
    void remove(KSkin *skin);

private:
    bool wantsDark();
    void guessFromPalette();
    void followDesktop();
    void followScreen(QScreen *screen);
    void updateColors(bool contrastChanged);
    void updateMetrics();
    void applyPalette();
    template <class Tell> void tellAll(Tell tell) const;

    QList<KSkin *> m_skins;
    DesktopTheme *m_desktop = nullptr; // child of the application
    std::optional<KSkin::Theme> m_theme;
    DesktopChoices m_choices;
    std::optional<bool> m_guess;
    std::optional<bool> m_dark;
    qreal m_dpiFactor = 0; // the last that was told
    bool m_guessing = false;
};

} // namespace zel::platform
