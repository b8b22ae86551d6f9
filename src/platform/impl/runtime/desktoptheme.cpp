#include "desktoptheme.h"

#include "base/logging.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QThread>

namespace zel::platform {
namespace {

const QLatin1String Service("org.freedesktop.portal.Desktop");
const QLatin1String Path("/org/freedesktop/portal/desktop");
const QLatin1String Interface("org.freedesktop.portal.Settings");
const QLatin1String Group("org.freedesktop.appearance");
const QLatin1String Key("color-scheme");

enum ColorScheme : uint { NoPreference = 0, PreferDark = 1, PreferLight = 2 };

} // namespace

// The first use of the bus waits for it to answer. Nobody waits for the thread: with a dead bus it may take
// long.
void DesktopTheme::start()
{
    auto *opener = QThread::create([] { QDBusConnection::sessionBus(); });
    connect(opener, &QThread::finished, this, &DesktopTheme::ask);
    connect(opener, &QThread::finished, opener, &QObject::deleteLater);
    opener->start();
}

void DesktopTheme::ask()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // Without a service name: naming it would make Qt look up its owner and wait for the answer.
    bus.connect(QString(), Path, Interface, QStringLiteral("SettingChanged"), this,
        SLOT(onSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call = QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("Read"));
    call << QString(Group) << QString(Key);
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isError())
            qCDebug(
                lcPlatform, "no colour scheme from the desktop: %ls", qUtf16Printable(reply.error().name()));
        else
            tell(reply.value().variant());
    });
}

void DesktopTheme::onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == Group && key == Key)
        tell(value.variant());
}

// Read() wraps the value in one variant more than the signal does.
void DesktopTheme::tell(QVariant value)
{
    while (value.userType() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case PreferDark:
        Q_EMIT changed(true);
        return;
    case PreferLight:
        Q_EMIT changed(false);
        return;
    default:
        Q_EMIT changed(std::nullopt);
    }
}

} // namespace zel::platform
