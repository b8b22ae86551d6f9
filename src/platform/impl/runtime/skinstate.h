#pragma once

#include "kskin.h"

#include <QList>
#include <optional>

namespace zel::platform {

class DesktopTheme;

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
    void setDesktopDark(std::optional<bool> dark); ///< as the desktop says later; empty: no preference

    void add(KSkin *skin); ///< the first one starts to follow the desktop, once the event loop runs
    void remove(KSkin *skin);

private:
    bool wantsDark();
    void guessFromPalette();
    void followDesktop();
    void update();
    void applyPalette() const;

    QList<KSkin *> m_skins;
    DesktopTheme *m_desktop = nullptr; // child of the application
    std::optional<KSkin::Theme> m_theme;
    std::optional<bool> m_desktopDark;
    std::optional<bool> m_guess;
    std::optional<bool> m_dark;
    bool m_guessing = false;
};

} // namespace zel::platform
