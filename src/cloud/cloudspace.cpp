#include "cloud/cloudspace.h"

#include "drive_types.h"
#include "kcloudsvrproxy.h"
#include "kvelaeventobject.h"

#include <QSet>
#include <chrono>
#include <utility>

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
    connect(events, &KVelaEventObject::SocketConnected, this, [this] {
        if (m_loginTold) // else that comes next, and asks
            refresh();
    });
    connect(events, &KVelaEventObject::signal_pushArrived, this, &CloudSpace::onPush);
    connect(events, &KVelaEventObject::signal_notifyFileCreation, this, &CloudSpace::refreshSoon);
    onLogin();
}

void CloudSpace::onLogin()
{
    KVelaIpcLoginCache login;
    m_loginTold = m_cloud->getUserLoginInfo(&login);
    m_loggedIn = m_loginTold && login.isLogined();
    m_local = m_loggedIn && login.loginState == LocalAccountState;
    m_account = m_loggedIn ? login.nickName : QString();
    if (std::exchange(m_user, login.userId) != login.userId) {
        m_used = -1;
        m_total = 0;
    }
    Q_EMIT changed();
    if (m_loginTold)
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
    if (!m_pause.isActive())
        m_pause.start();
}

void CloudSpace::refresh()
{
    GetStorageInfoArg arg;
    arg.refresh = true;
    m_asking.cancel(); // the answer would be older than this one's
    m_asking = zel::ask<GetStorageInfoResult>(
        m_cloud, "getStorageInfo", arg, this, [this](const CloudReply<GetStorageInfoResult> &reply) {
            if (reply)
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
