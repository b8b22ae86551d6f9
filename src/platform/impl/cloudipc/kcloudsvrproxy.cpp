#include "kcloudsvrproxy.h"

#include "base/logging.h"
#include "kcloudsvrproxy_p.h"
#include "kvelanetworkmonitor.h"
#include "proxylist.h"

#include <QCoreApplication>
#include <krt/krt.h>

using namespace zel;
using cloudipc::CallTable;
using cloudipc::CloudLink;

namespace {

CallTable::Gate gateOf(CloudLink::State state)
{
    switch (state) {
    case CloudLink::State::Connected:
        return CallTable::Gate::Open;
    case CloudLink::State::Starting:
    case CloudLink::State::Introducing:
        return CallTable::Gate::Waiting;
    case CloudLink::State::Stopped:
    case CloudLink::State::Pausing:
    case CloudLink::State::Refused:
        break;
    }
    return CallTable::Gate::Closed;
}

} // namespace

QVector<KCloudSvrProxy *> &cloudipc::liveProxies()
{
    static QVector<KCloudSvrProxy *> proxies;
    return proxies;
}

KCloudSvrProxy::Private::Private(KCloudSvrProxy *proxy)
    : q(proxy),
      link([this](const wire::MessageHead &head, wire::MessageReader &reader) { onMessage(head, reader); }),
      calls([this] { return gateOf(link.state()); }, [this](const QByteArray &frame) { link.send(frame); }),
      login([this](QObject *receiver, const QString &slot) {
          callList(QStringLiteral("getLoginInfo"), {}, receiver, slot);
      }),
      pushes(&events, &login)
{
    connect(&link, &CloudLink::up, q, [this] { onUp(); });
    connect(&link, &CloudLink::lost, q, [this] { onLost(); });
    connect(&link, &CloudLink::unreachable, q, [this] { onUnreachable(); });
    connect(&link, &CloudLink::refused, q, &KCloudSvrProxy::linkRefused);
    connect(&login, &cloudipc::LoginKeeper::loginStatusChanged, q, &KCloudSvrProxy::loginStatusChanged);
}

QString KCloudSvrProxy::Private::callList(
    const QString &method, const QStringList &args, QObject *receiver, const QString &slot)
{
    const std::string name = method.toStdString();
    return calls.call(name, receiver, slot,
        [&name, &args](int32_t sequence) { return wire::listCallFrame(name, sequence, args); });
}

// Whoever gets the message may destroy the proxy: nothing of it is touched afterwards unless it was damaged.
void KCloudSvrProxy::Private::onMessage(const wire::MessageHead &head, wire::MessageReader &reader)
{
    bool understood = false;
    switch (head.kind) {
    case wire::MessageKind::Reply:
        understood = calls.takeReply(head, reader);
        break;
    case wire::MessageKind::Exception:
        understood = calls.takeRefusal(head, reader);
        break;
    case wire::MessageKind::Push:
        understood = pushes.takePush(head, reader);
        break;
    case wire::MessageKind::Call:
        break;
    }
    if (understood)
        return;
    const QString why = reader.error().isEmpty() ? QStringLiteral("not what was asked for") : reader.error();
    link.reject(QString::fromStdString(head.method) + QLatin1String(": ") + why);
}

// The proxy's users connect to the events when it tells that the service is there, so that comes first.
void KCloudSvrProxy::Private::onUp()
{
    const QPointer<KCloudSvrProxy> alive(q);
    const int connection = link.connectionNumber();
    const auto stillUp = [this, &alive, connection] {
        return alive && link.state() == CloudLink::State::Connected && link.connectionNumber() == connection;
    };
    calls.sendWaiting();
    login.refresh();
    KVelaNetworkMonitor::instance()->setOnline(true);
    if (stillUp())
        Q_EMIT q->velaInited();
    if (stillUp())
        Q_EMIT events.SocketConnected();
}

void KCloudSvrProxy::Private::onLost()
{
    const QPointer<KCloudSvrProxy> alive(q);
    calls.endAll(); // their slots are called later
    Q_EMIT events.SocketDisConnected();
    if (alive && link.state() != CloudLink::State::Connected)
        KVelaNetworkMonitor::instance()->setOnline(false);
}

// On a later turn, because this may be inside the call that starts the service.
void KCloudSvrProxy::Private::onUnreachable()
{
    calls.endAll();
    QMetaObject::invokeMethod(
        q,
        [this] {
            if (link.state() != CloudLink::State::Connected)
                KVelaNetworkMonitor::instance()->setOnline(false);
        },
        Qt::QueuedConnection);
}

KCloudSvrProxy::KCloudSvrProxy(QObject *parent) : QObject(parent), d(std::make_unique<Private>(this))
{
    cloudipc::liveProxies().append(this);
}

KCloudSvrProxy::~KCloudSvrProxy()
{
    cloudipc::liveProxies().removeOne(this);
}

QString KCloudSvrProxy::asyncCall(
    const QString &method, const QStringList &args, QObject *receiver, const QString &slot)
{
    return d->callList(method, args, receiver, slot);
}

QString KCloudSvrProxy::asynCallEx(
    const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot)
{
    const std::string name = method.toStdString();
    const wire::RecordType *type = arg.name() && arg.data() ? wire::findRecord(arg.name()) : nullptr;
    if (!type)
        qCWarning(lcPlatform, "%s: \"%s\" is no record", name.c_str(), arg.name() ? arg.name() : "");
    return d->calls.call(name, receiver, slot, [&](int32_t sequence) {
        return type ? wire::callFrame(name, sequence, *type->base(arg.data())) : QByteArray();
    });
}

bool KCloudSvrProxy::cancelCall(const QString &requestId)
{
    return d->calls.cancel(requestId);
}

QString KCloudSvrProxy::clientIdentity()
{
    return QCoreApplication::applicationName();
}

void KCloudSvrProxy::notify(const QString &name, const QVariant &first, const QVariant &second)
{
    Q_EMIT d->events.signal_notify(name, first, second);
}

void KCloudSvrProxy::startVelaProcess(const QString &arguments)
{
    const QString folder = krt::dirs::programs();
    if (folder.isEmpty()) {
        qCWarning(lcPlatform, "no cloud service: the folder of programs is not known");
        return;
    }
    const QStringList own = {QStringLiteral("--exit-with-last-client")};
    d->link.start(folder + QStringLiteral("/zelcloud"),
        own + arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts), clientIdentity());
}

bool KCloudSvrProxy::isConnected() const
{
    return d->link.state() == CloudLink::State::Connected;
}

QString KCloudSvrProxy::linkError() const
{
    return d->link.error();
}

KVelaEventObject *KCloudSvrProxy::velaEventObject() const
{
    return &d->events;
}

void KCloudSvrProxy::addClientProxy(KClientSvrProxy *client)
{
    d->pushes.addClient(client);
}

void KCloudSvrProxy::setCallTimeout(std::chrono::milliseconds timeout)
{
    d->calls.setTimeout(timeout);
}
