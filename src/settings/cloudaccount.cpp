#include "settings/cloudaccount.h"

#include "account_types.h"
#include "cloud/wire/serviceerror.h"
#include "common_types.h"
#include "drive_types.h"
#include "kcloudsvrproxy.h"
#include "kvelaeventobject.h"
#include "kvelanetworkmonitor.h"

using zel::vela::GetInfoArg;
using zel::vela::GetInfoResult;
using zel::vela::LogoutArg;
using zel::vela::LogoutResult;
using zel::vela::VelaIpcResult;

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
    m_signing =
        zel::ask<VelaIpcResult>(m_cloud, "login", QStringList{QStringLiteral("local"), QString(), QString()},
            this, [this](const CloudReply<VelaIpcResult> &reply) { end(bool(reply)); });
    Q_EMIT changed();
}

void CloudAccount::signOut(bool dropUploads)
{
    if (!isReached() || isBusy())
        return;
    LogoutArg arg;
    arg.force = dropUploads;
    arg.reason = "settings";
    m_signing = zel::ask<LogoutResult>(
        m_cloud, "logout", arg, this, [this](const auto &reply) { onSignedOut(reply); });
    Q_EMIT changed();
}

void CloudAccount::onSignedOut(const CloudReply<LogoutResult> &reply)
{
    if (reply.error != int(zel::wire::ServiceError::Conflict))
        return end(bool(reply));
    const int waiting = int(reply.record.waitingTaskIds.size());
    Q_EMIT changed();
    Q_EMIT failed(Problem::UploadsWait, waiting);
}

// What the new state is comes by the service's own notice, to all who want to know.
void CloudAccount::end(bool done)
{
    Q_EMIT changed();
    if (!done)
        Q_EMIT failed(Problem::Failed, 0);
}

// Of the root, whose local copy is the drive itself.
void CloudAccount::askFolder()
{
    if (!isReached())
        return;
    zel::ask<GetInfoResult>(
        m_cloud, "getInfo", GetInfoArg(), this, [this](const CloudReply<GetInfoResult> &reply) {
            if (!reply)
                return;
            m_folder = zel::wire::toQt(reply.record.item.cache);
            Q_EMIT changed();
        });
}
