#include "settings/cloudaccount.h"

#include "account_types.h"
#include "cloud/wire/serviceerror.h"
#include "drive_types.h"
#include "kcloudsvrproxy.h"
#include "kvelaeventobject.h"
#include "kvelanetworkmonitor.h"

using zel::vela::GetInfoArg;
using zel::vela::GetInfoResult;
using zel::vela::LogoutArg;
using zel::vela::LogoutResult;

CloudAccount::CloudAccount(KCloudSvrProxy *cloud, QObject *parent)
    : QObject(parent), m_cloud(cloud), m_space(cloud)
{
    qRegisterMetaType<Problem>();
    connect(&m_space, &CloudSpace::changed, this, &CloudAccount::changed);
    if (!cloud)
        return;
    connect(cloud, &KCloudSvrProxy::loginStatusChanged, this, &CloudAccount::changed);
    connect(cloud, &KCloudSvrProxy::linkRefused, this, &CloudAccount::changed);
    connect(cloud, &QObject::destroyed, this, &CloudAccount::changed);
    connect(cloud->velaEventObject(), &KVelaEventObject::SocketConnected, this, [this] {
        askFolder();
        m_space.refresh();
        Q_EMIT changed();
    });
    connect(cloud->velaEventObject(), &KVelaEventObject::SocketDisConnected, this, &CloudAccount::changed);
    connect(KVelaNetworkMonitor::instance(), &KVelaNetworkMonitor::velaOffline, this, &CloudAccount::changed);
    askFolder();
}

bool CloudAccount::isReached() const
{
    return m_cloud && m_cloud->isConnected();
}

CloudAccount::State CloudAccount::state() const
{
    if (!isReached())
        return State::Away;
    KVelaIpcLoginCache login;
    if (!m_cloud->getUserLoginInfo(&login))
        return State::Asking;
    return login.isLogined() ? State::SignedIn : State::SignedOut;
}

void CloudAccount::startService()
{
    if (m_cloud && !isReached())
        m_cloud->startVelaProcess(QString());
}

void CloudAccount::signIn()
{
    if (!isReached() || isBusy())
        return;
    m_request = m_cloud->asyncCall(QStringLiteral("login"), {QStringLiteral("local"), QString(), QString()},
        this, QStringLiteral("onSignedIn"));
    Q_EMIT changed();
}

void CloudAccount::signOut(bool dropUploads)
{
    if (!isReached() || isBusy())
        return;
    LogoutArg arg;
    arg.force = dropUploads;
    arg.reason = "settings";
    m_request = m_cloud->asynCallEx(
        QStringLiteral("logout"), Q_ARG(LogoutArg, arg), this, QStringLiteral("onSignedOut"));
    Q_EMIT changed();
}

void CloudAccount::onSignedIn(bool bOk, const QString &requestId, const KRpcResponse &response)
{
    if (requestId == m_request)
        end(bOk && response.state() == 0);
}

void CloudAccount::onSignedOut(bool bOk, const QString &requestId, const LogoutResult &result)
{
    if (requestId != m_request)
        return;
    const bool uploadsWait = bOk && result.state == int(zel::wire::ServiceError::Conflict);
    if (!uploadsWait)
        return end(bOk && result.state == 0);
    m_request.clear();
    Q_EMIT changed();
    Q_EMIT failed(Problem::UploadsWait, int(result.waitingTaskIds.size()));
}

// What the new state is comes by the service's own notice, to all who want to know.
void CloudAccount::end(bool done)
{
    m_request.clear();
    Q_EMIT changed();
    if (!done)
        Q_EMIT failed(Problem::Failed, 0);
}

// Of the root, whose local copy is the drive itself.
void CloudAccount::askFolder()
{
    if (!isReached())
        return;
    const GetInfoArg arg;
    m_cloud->asynCallEx(QStringLiteral("getInfo"), Q_ARG(GetInfoArg, arg), this, QStringLiteral("onFolder"));
}

void CloudAccount::onFolder(bool bOk, const QString &, const GetInfoResult &result)
{
    if (!bOk || result.state != 0)
        return;
    m_folder = QString::fromStdString(result.item.cache);
    Q_EMIT changed();
}
