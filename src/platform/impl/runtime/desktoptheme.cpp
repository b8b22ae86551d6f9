#include "desktoptheme.h"

#include "base/dbus/sessionbus.h"
#include "base/logging.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <cmath>

namespace zel::platform {
namespace {

const QLatin1String Service("org.freedesktop.portal.Desktop");
const QLatin1String Path("/org/freedesktop/portal/desktop");
const QLatin1String Interface("org.freedesktop.portal.Settings");

const QLatin1String Appearance("org.freedesktop.appearance");
const QLatin1String GnomeInterface("org.gnome.desktop.interface");
const QLatin1String GnomeAccess("org.gnome.desktop.a11y.interface");
const QLatin1String KdeGlobals("org.kde.kdeglobals.KDE");

enum ColorScheme : uint { NoPreference = 0, PreferDark = 1, PreferLight = 2 };
constexpr uint HigherContrast = 1;
constexpr qreal SmallestText = 0.5;
constexpr qreal LargestText = 3;

QStringList groups()
{
    return {Appearance, GnomeInterface, GnomeAccess, KdeGlobals};
}

// Values may come wrapped in more variants than one.
QVariant unwrapped(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<bool> darkFrom(const QVariant &scheme)
{
    switch (scheme.toUInt()) {
    case PreferDark:
        return true;
    case PreferLight:
        return false;
    default:
        return std::nullopt;
    }
}

// Some desktops send numbers as text.
std::optional<qreal> number(const QVariant &value)
{
    bool isNumber = false;
    const qreal result = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(result))
        return std::nullopt;
    return result;
}

std::optional<bool> flag(const QVariant &value)
{
    return value.userType() == QMetaType::Bool ? std::optional(value.toBool()) : std::nullopt;
}

} // namespace

DesktopChoices choicesFrom(const PortalSettings &settings)
{
    const auto value = [&settings](const QString &group, const char *key) {
        return settings.value(group).value(QLatin1String(key));
    };
    DesktopChoices choices;
    choices.dark = darkFrom(value(Appearance, "color-scheme"));
    choices.highContrast = value(Appearance, "contrast").toUInt() == HigherContrast
        || flag(value(GnomeAccess, "high-contrast")).value_or(false);
    const bool stopped = number(value(KdeGlobals, "AnimationDurationFactor")) == 0;
    choices.animations = !stopped && flag(value(GnomeInterface, "enable-animations")).value_or(true);
    const qreal scale = number(value(GnomeInterface, "text-scaling-factor")).value_or(1);
    choices.textScale = scale > 0 ? qBound(SmallestText, scale, LargestText) : 1;
    return choices;
}

bool isTextScale(qreal scale)
{
    return scale >= SmallestText && scale <= LargestText;
}

void DesktopTheme::start()
{
    sessionbus::open(this, [this] { ask(); });
}

// One question for all groups: every answer wakes the window.
void DesktopTheme::ask()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return tell();
    // Without a service name: naming it would make Qt look up its owner and wait for the answer.
    bus.connect(QString(), Path, Interface, QStringLiteral("SettingChanged"), this,
        SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call = QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("ReadAll"));
    call << groups();
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        const QVariant all = reply.arguments().value(0);
        if (reply.type() != QDBusMessage::ReplyMessage || all.userType() != qMetaTypeId<QDBusArgument>()) {
            qCDebug(lcPlatform, "no settings from the desktop: %ls", qUtf16Printable(reply.errorName()));
            return tell();
        }
        if (all.value<QDBusArgument>().currentSignature() != QLatin1String("a{sa{sv}}"))
            return tell();
        const auto answered = qdbus_cast<PortalSettings>(all);
        for (auto group = answered.cbegin(); group != answered.cend(); ++group) {
            for (auto entry = group->cbegin(); entry != group->cend(); ++entry)
                m_settings[group.key()].insert(entry.key(), unwrapped(entry.value()));
        }
        tell();
    });
}

void DesktopTheme::onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (!groups().contains(group))
        return;
    m_settings[group].insert(key, unwrapped(value.variant()));
    tell();
}

void DesktopTheme::tell()
{
    const DesktopChoices choices = choicesFrom(m_settings);
    if (choices == std::exchange(m_choices, choices) && m_told)
        return;
    m_told = true;
    Q_EMIT changed(choices);
}

} // namespace zel::platform
