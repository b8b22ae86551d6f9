#include "tray/traylink.h"

#include "base/dbus/sessionbus.h"
#include "base/logging.h"
#include "tray/statusnotifieritem.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <limits>

namespace {

const QLatin1String Watcher("org.kde.StatusNotifierWatcher"); // its name and its interface
const QLatin1String WatcherPath("/StatusNotifierWatcher");
const QLatin1String ItemPath("/StatusNotifierItem");

QString nextName()
{
    static int number = 0;
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QString::number(QCoreApplication::applicationPid()), QString::number(++number));
}

// Qt's own functions for this wait for the answer.
QDBusMessage busCall(const char *method, const QString &name)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    return QDBusMessage::createMethodCall(
               bus, QStringLiteral("/org/freedesktop/DBus"), bus, QLatin1String(method))
        << name;
}

} // namespace

TrayLink::TrayLink(StatusNotifierItem *item, QObject *parent)
    : QObject(parent), m_item(item), m_name(nextName())
{
}

TrayLink::~TrayLink()
{
    if (!m_onBus)
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.send(busCall("ReleaseName", m_name));
    bus.unregisterObject(ItemPath);
}

void TrayLink::start()
{
    zel::sessionbus::open(this, [this] { onBusOpened(); });
}

void TrayLink::onBusOpened()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    m_onBus =
        bus.isConnected() && bus.registerObject(ItemPath, m_item, QDBusConnection::ExportScriptableContents);
    if (!m_onBus) {
        qCInfo(lcApp, "no tray: %s",
            bus.isConnected() ? "the item's path is in use" : "there is no session bus");
        Q_EMIT settled();
        return;
    }
    bus.send(busCall("RequestName", m_name) << 4U); // not queued
    auto *follower = new QDBusServiceWatcher(Watcher, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(follower, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString &, const QString &, const QString &owner) { onWatcherChanged(owner); });
    // Without a service name: naming it would make Qt look up its owner and wait for the answer.
    for (const char *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        bus.connect(QString(), WatcherPath, Watcher, QLatin1String(signal), this, SLOT(askForHost()));
    call(busCall("GetNameOwner", Watcher), [this](const QDBusPendingReply<QString> &reply) {
        onWatcherChanged(reply.isError() ? QString() : reply.value());
    });
}

// However long it takes: a panel that hangs answers once it goes on, and until then nobody knows whether
// there is a tray. What would be asked instead waits for the same panel on this thread.
template <typename Answer> void TrayLink::call(const QDBusMessage &message, Answer answer)
{
    constexpr int NoLimit = std::numeric_limits<int>::max();
    auto *pending =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message, NoLimit), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [pending, answer] {
        pending->deleteLater();
        // It went without an answer, or the bus itself did not wait: its owner tells what comes.
        if (!pending->isError() || pending->error().type() != QDBusError::NoReply)
            answer(*pending);
    });
}

void TrayLink::onWatcherChanged(const QString &owner)
{
    if (!owner.isEmpty())
        return enroll();
    setShown(false);
    Q_EMIT settled();
}

void TrayLink::enroll()
{
    if (!std::exchange(m_prepared, true) && prepare)
        prepare(QDBusConnection::sessionBus());
    QDBusMessage message = QDBusMessage::createMethodCall(
        Watcher, WatcherPath, Watcher, QStringLiteral("RegisterStatusNotifierItem"));
    message.setAutoStartService(false);
    call(message << m_name, [this](const QDBusPendingReply<> &reply) {
        if (reply.isError())
            qCWarning(lcApp, "the tray does not take the item: %ls", qUtf16Printable(reply.error().name()));
        askForHost();
    });
}

void TrayLink::askForHost()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        Watcher, WatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message.setAutoStartService(false);
    call(message << QString(Watcher) << QStringLiteral("IsStatusNotifierHostRegistered"),
        [this](const QDBusPendingReply<QDBusVariant> &reply) {
            setShown(!reply.isError() && reply.value().variant().toBool());
            Q_EMIT settled();
        });
}

void TrayLink::setShown(bool shown)
{
    if (std::exchange(m_shown, shown) != shown)
        Q_EMIT shownChanged(shown);
}
