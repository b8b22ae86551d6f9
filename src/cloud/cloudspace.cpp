#include "cloud/cloudspace.h"

#include "drive_types.h"
#include "kcloudsvrproxy.h"
#include "kvelaeventobject.h"

#include <QSet>
#include <chrono>

using namespace std::chrono_literals;
using zel::vela::GetStorageInfoArg;
using zel::vela::GetStorageInfoResult;

namespace {

constexpr auto PauseAfterChange = 2s; // an upload of many files tells of each
constexpr int LocalAccountState = 1;

} // namespace

CloudSpace::CloudSpace(KCloudSvrProxy *cloud, QObject *parent) : QObject(parent), m_cloud(cloud)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseAfterChange);
    connect(&m_pause, &QTimer::timeout, this, &CloudSpace::refresh);
    if (!cloud)
        return;
    connect(cloud, &KCloudSvrProxy::loginStatusChanged, this, &CloudSpace::onLogin);
    const KVelaEventObject *events = cloud->velaEventObject();
    connect(events, &KVelaEventObject::signal_pushArrived, this, &CloudSpace::onPush);
    connect(events, &KVelaEventObject::signal_notifyFileCreation, this, &CloudSpace::refreshSoon);
    onLogin();
}

// Also told after each connect.
void CloudSpace::onLogin()
{
    KVelaIpcLoginCache login;
    const bool told = m_cloud->getUserLoginInfo(&login);
    m_loggedIn = told && login.isLogined();
    m_local = m_loggedIn && login.loginState == LocalAccountState;
    m_account = m_loggedIn ? login.nickName : QString();
    if (!m_loggedIn)
        m_used = -1;
    Q_EMIT changed();
    refresh();
}

void CloudSpace::onPush(const QString &method)
{
    static const QSet<QString> ofTheDrive{QStringLiteral("notifyFileAction"),
        QStringLiteral("notifyFileBatchAction"), QStringLiteral("notifyFileProperty"),
        QStringLiteral("notifyRecycleBin")};
    if (ofTheDrive.contains(method))
        refreshSoon();
}

void CloudSpace::refreshSoon()
{
    if (m_loggedIn && !m_pause.isActive())
        m_pause.start();
}

void CloudSpace::refresh()
{
    if (!m_loggedIn)
        return;
    GetStorageInfoArg arg;
    arg.refresh = true;
    m_asking.cancel(); // the answer would be older than this one's
    m_asking = zel::ask<GetStorageInfoResult>(
        m_cloud, "getStorageInfo", arg, this, [this](const CloudReply<GetStorageInfoResult> &reply) {
            if (reply && m_loggedIn)
                take(reply.record);
        });
}

void CloudSpace::take(const GetStorageInfoResult &room)
{
    const qint64 total = qMax<qint64>(0, room.totalSize);
    if (m_used == room.usedSize && m_total == total)
        return;
    m_used = room.usedSize;
    m_total = total;
    Q_EMIT changed();
}
