#include "app/desktopactivation.h"

#include "app/commandtarget.h"
#include "app/startupnotice.h"
#include "base/dbus/sessionbus.h"
#include "base/logging.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

const QLatin1String Name("org.zelbox.ZelBox");
const QLatin1String Path("/org/zelbox/ZelBox");

enum RequestFlag : uint { DoNotQueue = 4 };
enum RequestAnswer : uint { PrimaryOwner = 1, AlreadyOwner = 4 };

// Qt's own functions for this wait for the answer.
QDBusMessage busCall(const char *method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QLatin1String(method));
}

struct Action
{
    const char *name; // as in the desktop file
    void (*perform)(CommandTarget &target);
};

constexpr Action Actions[] = {
    {"mini-window", [](CommandTarget &target) { target.showMiniWindow(QString()); }},
    {"settings", [](CommandTarget &target) { target.openSettings(QString()); }},
    {"quit", [](CommandTarget &target) { target.quitLater(); }},
};

} // namespace

DesktopActivation::DesktopActivation(CommandTarget &target, QObject *parent)
    : QObject(parent), m_target(target)
{
}

DesktopActivation::~DesktopActivation()
{
    if (!m_registered)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (m_owner)
        bus.send(busCall("ReleaseName") << QString(Name));
    bus.unregisterObject(Path);
}

void DesktopActivation::start()
{
    if (m_owner || m_trying)
        return;
    m_trying = true;
    zel::sessionbus::open(this, [this] { onBusOpened(); });
}

void DesktopActivation::onBusOpened()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return settle("there is no session bus");
    // Before the name: whoever waits for it calls as soon as it is there.
    m_registered = m_registered || bus.registerObject(Path, this, QDBusConnection::ExportScriptableSlots);
    if (!m_registered)
        return settle("its object path is in use");
    auto *watcher = new QDBusPendingCallWatcher(
        bus.asyncCall(busCall("RequestName") << QString(Name) << uint(DoNotQueue)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        onNameAnswered(reply.isError() ? 0 : reply.value());
    });
}

void DesktopActivation::onNameAnswered(uint answer)
{
    m_owner = answer == PrimaryOwner || answer == AlreadyOwner;
    settle(m_owner ? nullptr : answer == 0 ? "the bus refuses its name" : "another program has its name");
}

void DesktopActivation::settle(const char *problem)
{
    m_trying = false;
    if (problem)
        qCInfo(lcApp, "the desktop cannot reach the box: %s", problem);
    Q_EMIT settled(m_owner);
}

void DesktopActivation::Activate(const QVariantMap &platformData)
{
    const StartupNotice notice(StartupToken::fromPlatformData(platformData));
    m_target.showMainWindow();
}

void DesktopActivation::Open(const QStringList &uris, const QVariantMap &platformData)
{
    qCInfo(lcApp, "asked to open %d documents, which is not the box's to do", int(uris.size()));
    Activate(platformData);
}

void DesktopActivation::ActivateAction(
    const QString &name, const QVariantList &, const QVariantMap &platformData)
{
    for (const Action &action : Actions) {
        if (name != QLatin1String(action.name))
            continue;
        const StartupNotice notice(StartupToken::fromPlatformData(platformData));
        return action.perform(m_target);
    }
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("There is no such action."));
}
