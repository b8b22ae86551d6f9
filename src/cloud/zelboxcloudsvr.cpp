#include "cloud/zelboxcloudsvr.h"

#include "base/logging.h"
#include "cloud/cloudcredentials.h"
#include "cloud/zelboxclientsvrproxy.h"
#include "kvelanetworkmonitor.h"

#include <QPointer>
#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto StartDelay = 200ms;
constexpr int LoginInfoFields = 5;

} // namespace

ZelBoxCloudSvr::ZelBoxCloudSvr(QObject *parent)
    : KCloudSvrProxy(parent), m_credentials(std::make_unique<CloudCredentials>())
{
    connect(this, &KCloudSvrProxy::velaInited, this, &ZelBoxCloudSvr::onVelaInited);
}

ZelBoxCloudSvr::~ZelBoxCloudSvr() = default;

QString ZelBoxCloudSvr::clientIdentity()
{
    return ZelBoxClientSvrProxy::windowIdentity();
}

void ZelBoxCloudSvr::onVelaInited()
{
    if (m_connectedOnce)
        return;
    m_connectedOnce = true;
    qCInfo(lcCloud, "cloud service is there");
    connect(KVelaNetworkMonitor::instance(), &KVelaNetworkMonitor::velaOffline, this,
        &ZelBoxCloudSvr::velaOffline);
    connect(this, &KCloudSvrProxy::loginStatusChanged, this, &ZelBoxCloudSvr::onLoginStatusChanged);
    relayEvents();
}

void ZelBoxCloudSvr::relayEvents()
{
    using Events = KVelaEventObject;
    using Svr = ZelBoxCloudSvr;
    const Events *events = velaEventObject();
    connect(events, &Events::SocketConnected, this, &Svr::socketConnected);
    connect(events, &Events::SocketDisConnected, this, &Svr::socketDisconnected);
    connect(events, &Events::signal_vipInfoChanged, this, &Svr::onVipInfoChanged);
    connect(events, &Events::signal_notifyRecentFileListChanged, this, &Svr::notifyRecentFileListChanged);
    connect(events, &Events::signal_notifyFileCreation, this, &Svr::notifyFileCreation);
    connect(events, &Events::signal_notifyNewMsgList, this, &Svr::notifyNewMsgListArrived);
    connect(
        events, &Events::signal_notifyActionsMapForReadMessage, this, &Svr::notifyActionsMapForReadMessage);
    connect(events, &Events::signal_notifyShareDiscussion, this, &Svr::notifyShareDiscussion);
    connect(events, &Events::signal_notifyUserThumbnail, this, &Svr::notifyUserThumbnail);
    connect(events, &Events::signal_notifyRecentFileStateChanged, this, &Svr::notifyRecentFileStateChanged);
}

void ZelBoxCloudSvr::onFirstMainWindowShown()
{
    QTimer::singleShot(StartDelay, this, &ZelBoxCloudSvr::onStartVelaProcess);
}

void ZelBoxCloudSvr::onStartVelaProcess()
{
    startVelaProcess(QString());
}

void ZelBoxCloudSvr::onLoginStatusChanged()
{
    const QPointer<ZelBoxCloudSvr> alive(this);
    KVelaIpcLoginCache login;
    if (getUserLoginInfo(&login) && qExchange(m_lastLoginState, login.loginState) != login.loginState)
        Q_EMIT vipInfoUpdated();
    if (alive)
        asyncCall(QStringLiteral("getLoginInfo"), {}, this, QStringLiteral("onUpdateLoginInfo"));
}

// What does not look like a whole login leaves the one that we have.
void ZelBoxCloudSvr::onUpdateLoginInfo(bool bOk, const QString &, const KRpcResponse &res)
{
    const QString loginInfo = res.value(QStringLiteral("loginInfo"));
    if (!bOk || loginInfo.count(QLatin1Char('|')) != LoginInfoFields - 1)
        return;
    if (res.value(QStringLiteral("userId")).isEmpty())
        return;
    *m_credentials = {res.value(QStringLiteral("accessID")), res.value(QStringLiteral("secretKey")),
        res.value(QStringLiteral("cookie"))};
}

void ZelBoxCloudSvr::onVipInfoChanged(const QVariant &info)
{
    if (info.userType() != QMetaType::QVariantMap)
        return;
    QMap<QString, QString> texts;
    const QVariantMap values = info.toMap();
    for (auto it = values.begin(); it != values.end(); ++it)
        texts.insert(it.key(), it.value().toString());
    Q_EMIT signal_vipInfoChanged(texts);
}
