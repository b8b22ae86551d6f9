#include "skinstate.h"

#include "base/settingskeys.h"
#include "klitestyle.h"
#include "ksettings.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
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

// What the desktop said last time. Its answer comes when the window is long on the screen, which in a dark
// desktop would flash in white at every start.
DesktopChoices storedChoices()
{
    KSettings settings;
    enterBoxGroup(settings);
    settings.beginGroup(keys::DesktopLook);
    DesktopChoices choices;
    if (settings.contains(keys::DesktopDark))
        choices.dark = settings.value(keys::DesktopDark).toBool();
    choices.highContrast = settings.value(keys::DesktopContrast, false).toBool();
    const qreal scale = settings.value(keys::DesktopTextScale, 1).toReal();
    if (isTextScale(scale))
        choices.textScale = scale;
    return choices;
}

void storeChoices(const DesktopChoices &choices)
{
    KSettings settings;
    enterBoxGroup(settings);
    settings.beginGroup(keys::DesktopLook);
    if (choices.dark)
        settings.setValue(keys::DesktopDark, *choices.dark);
    else
        settings.remove(keys::DesktopDark);
    settings.setValue(keys::DesktopContrast, choices.highContrast);
    settings.setValue(keys::DesktopTextScale, choices.textScale);
}

// In a host with a style of its own the host's palette is not ours to change.
bool ownsApplicationPalette()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance())
        && qobject_cast<KLiteStyle *>(QApplication::style());
}

// Qt drops a font that equals the one before, although the same points are now other pixels.
void refreshApplicationFont()
{
    const QFont font = KLiteStyle::applicationFont();
    const QFont before = QApplication::font();
    if (before.family() != font.family())
        return; // not ours
    if (before == font) {
        QFont nudged = font;
        nudged.setPointSizeF(font.pointSizeF() + 0.5);
        QApplication::setFont(nudged);
    }
    QApplication::setFont(font);
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
    m_choices = storedChoices();
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
    return m_choices.dark.value_or(m_guess.value_or(false));
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
    updateColors(false);
}

void SkinState::setDesktop(const DesktopChoices &choices)
{
    const bool contrastChanged = choices.highContrast != m_choices.highContrast;
    if (choices != std::exchange(m_choices, choices))
        storeChoices(choices);
    updateColors(contrastChanged);
    updateMetrics();
}

// A slot may delete others.
template <class Tell> void SkinState::tellAll(Tell tell) const
{
    QList<QPointer<KSkin>> told;
    for (KSkin *skin : m_skins)
        told.append(skin);
    for (const QPointer<KSkin> &skin : qAsConst(told)) {
        if (skin)
            tell(skin.data());
    }
}

void SkinState::updateColors(bool contrastChanged)
{
    const bool before = isDark();
    m_dark = wantsDark();
    if (*m_dark == before && !contrastChanged)
        return;
    applyPalette();
    tellAll([dark = *m_dark](KSkin *skin) { Q_EMIT skin->themeChanged(dark); });
}

void SkinState::updateMetrics()
{
    const qreal factor = KLiteStyle::dpiFactor();
    if (qFuzzyCompare(factor, std::exchange(m_dpiFactor, factor)))
        return;
    if (ownsApplicationPalette())
        refreshApplicationFont();
    tellAll([](KSkin *skin) { Q_EMIT skin->metricsChanged(); });
}

void SkinState::applyPalette()
{
    if (!ownsApplicationPalette())
        return;
    const QPalette palette = KLiteStyle::palette(isDark(), m_choices.highContrast);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

void SkinState::add(KSkin *skin)
{
    m_skins.append(skin);
    if (!m_desktop && qApp)
        followDesktop();
}

void SkinState::followDesktop()
{
    m_desktop = new DesktopTheme(qApp);
    m_dpiFactor = KLiteStyle::dpiFactor();
    QObject::connect(m_desktop, &DesktopTheme::changed, m_desktop,
        [this](const DesktopChoices &choices) { setDesktop(choices); });
    QObject::connect(m_desktop, &QObject::destroyed, m_desktop, [this] { m_desktop = nullptr; });
    // Queued, so that asking does not stand between the start and the first window.
    QMetaObject::invokeMethod(m_desktop, &DesktopTheme::start, Qt::QueuedConnection);
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return;
    followScreen(QGuiApplication::primaryScreen());
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, m_desktop, [this](QScreen *screen) {
        followScreen(screen);
        updateMetrics();
    });
}

void SkinState::followScreen(QScreen *screen)
{
    if (screen)
        QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, m_desktop, [this] { updateMetrics(); });
}

void SkinState::remove(KSkin *skin)
{
    m_skins.removeOne(skin);
}

} // namespace zel::platform
