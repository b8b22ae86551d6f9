#include "skinstate.h"

#include "base/settingskeys.h"
#include "desktoptheme.h"
#include "klitestyle.h"
#include "ksettings.h"

#include <QApplication>
#include <QPointer>
#include <QToolTip>

namespace zel::platform {
namespace {

constexpr int DarkBelow = 128; // lightness of a window's ground

void enterBoxGroup(KSettings &settings)
{
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
}

KSkin::Theme storedTheme()
{
    KSettings settings;
    enterBoxGroup(settings);
    const QString name = settings.value(keys::Theme).toString();
    if (name == QLatin1String("dark"))
        return KSkin::Theme::Dark;
    return name == QLatin1String("light") ? KSkin::Theme::Light : KSkin::Theme::Auto;
}

QString nameOf(KSkin::Theme theme)
{
    switch (theme) {
    case KSkin::Theme::Light:
        return QStringLiteral("light");
    case KSkin::Theme::Dark:
        return QStringLiteral("dark");
    case KSkin::Theme::Auto:
        break;
    }
    return QStringLiteral("auto");
}

// In a host with a style of its own the host's palette is not ours to change.
bool ownsApplicationPalette()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance())
        && qobject_cast<KLiteStyle *>(QApplication::style());
}

} // namespace

// Never destroyed: skins of static objects leave after everything else.
SkinState &SkinState::instance()
{
    static auto *state = new SkinState;
    return *state;
}

void SkinState::adoptPlatformPalette()
{
    m_theme.reset();
    m_guess.reset();
    m_dark.reset();
    guessFromPalette();
    applyPalette();
}

void SkinState::guessFromPalette()
{
    // Asking for the first palette of the process may come back here through the style.
    if (m_guess || m_guessing || !qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    m_guessing = true;
    m_guess = QGuiApplication::palette().color(QPalette::Window).lightness() < DarkBelow;
    m_guessing = false;
}

bool SkinState::isDark()
{
    if (!m_dark)
        m_dark = wantsDark();
    return *m_dark;
}

bool SkinState::wantsDark()
{
    if (theme() != KSkin::Theme::Auto)
        return theme() == KSkin::Theme::Dark;
    guessFromPalette();
    return m_desktopDark.value_or(m_guess.value_or(false));
}

KSkin::Theme SkinState::theme()
{
    if (!m_theme)
        m_theme = storedTheme();
    return *m_theme;
}

void SkinState::setTheme(KSkin::Theme theme)
{
    m_theme = theme;
    KSettings settings;
    enterBoxGroup(settings);
    settings.setValue(keys::Theme, nameOf(theme));
    update();
}

void SkinState::setDesktopDark(std::optional<bool> dark)
{
    m_desktopDark = dark;
    update();
}

void SkinState::update()
{
    const bool before = isDark();
    m_dark = wantsDark();
    if (*m_dark == before)
        return;
    applyPalette();
    QList<QPointer<KSkin>> told;
    for (KSkin *skin : qAsConst(m_skins))
        told.append(skin);
    for (const QPointer<KSkin> &skin : qAsConst(told)) {
        if (skin) // a slot may delete others
            Q_EMIT skin->themeChanged(*m_dark);
    }
}

void SkinState::applyPalette() const
{
    if (!ownsApplicationPalette())
        return;
    const QPalette palette = KLiteStyle::palette(SkinState::instance().isDark());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

void SkinState::add(KSkin *skin)
{
    m_skins.append(skin);
    if (m_desktop || !qApp)
        return;
    m_desktop = new DesktopTheme(qApp);
    QObject::connect(
        m_desktop, &DesktopTheme::changed, m_desktop, [this](auto dark) { setDesktopDark(dark); });
    QObject::connect(m_desktop, &QObject::destroyed, m_desktop, [this] { m_desktop = nullptr; });
    // Queued, so that asking does not stand between the start and the first window.
    QMetaObject::invokeMethod(m_desktop, &DesktopTheme::start, Qt::QueuedConnection);
}

void SkinState::remove(KSkin *skin)
{
    m_skins.removeOne(skin);
}

} // namespace zel::platform
