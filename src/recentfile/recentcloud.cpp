#include "recentfile/recentcloud.h"

#include "base/logging.h"
#include "common_types.h"
#include "drive_types.h"
#include "kcloudask.h"
#include "kcloudsvrproxy.h"
#include "kvelautil.h"
#include "link_types.h"
#include "recent_types.h"
#include "recycle_types.h"

#include <QDateTime>
#include <QFileInfo>

using namespace zel::vela;
using zel::ask;
using zel::tell;
using zel::wire::fromQt;
using zel::wire::toQt;

namespace {

const auto Caller = "zelbox";

std::string cloudId(const RecentFileInfo &record)
{
    return record.cloudFileId == 0 ? std::string() : std::to_string(record.cloudFileId);
}

QString shownName(const RecentFileInfo &record)
{
    return record.cloudName.isEmpty() ? QFileInfo(record.path).fileName() : record.cloudName;
}

QString userOf(KCloudSvrProxy *proxy)
{
    KVelaIpcLoginCache login;
    return proxy->isLogined() && proxy->getUserLoginInfo(&login) ? login.userId : QString();
}

template <class Answer> RecentCloud::Ended endOf(const CloudReply<Answer> &reply)
{
    if (!reply.wasReached())
        return RecentCloud::Ended::NotReached;
    return reply ? RecentCloud::Ended::Done : RecentCloud::Ended::Refused;
}

} // namespace

RecentCloud::RecentCloud(KCloudSvrProxy *proxy, QObject *parent) : QObject(parent), m_proxy(proxy)
{
    qRegisterMetaType<Ended>();
    if (!proxy)
        return;
    m_user = userOf(proxy);
    connect(proxy, &KCloudSvrProxy::loginStatusChanged, this, &RecentCloud::onLoginStatusChanged);
}

// The proxy also tells of a new name or picture of the same user, and after each connect.
void RecentCloud::onLoginStatusChanged()
{
    if (std::exchange(m_user, userOf(m_proxy)) != m_user)
        Q_EMIT loginChanged(!m_user.isEmpty());
    Q_EMIT loginTold();
}

bool RecentCloud::isLoginKnown() const
{
    KVelaIpcLoginCache login;
    return !m_proxy || m_proxy->getUserLoginInfo(&login);
}

bool RecentCloud::isLoggedIn() const
{
    return m_proxy && m_proxy->isLogined();
}

bool RecentCloud::isReached() const
{
    return m_proxy && m_proxy->isConnected();
}

bool RecentCloud::isInCloud(const RecentFileInfo &record) const
{
    return isLoggedIn() && record.cloudBacked && record.cloudFileId != 0;
}

KCloudSvrProxy *RecentCloud::proxy() const
{
    return m_proxy;
}

void RecentCloud::share(const RecentFileInfo &record)
{
    if (!isLoggedIn())
        return;
    ShowFileShareDlgArg request;
    request.fileId = cloudId(record);
    request.fileName = fromQt(shownName(record));
    request.filePath = fromQt(record.path);
    request.accessTime = QDateTime::fromMSecsSinceEpoch(record.lastAccess).toSecsSinceEpoch();
    request.caller = Caller;
    ask<ShowFileShareDlgResult>(m_proxy, "showFileShareDlg", request, this,
        [this, record](const auto &reply) { Q_EMIT shareEnded(record, endOf(reply)); });
}

// A file of this machine goes by its path, also when the cloud has a copy: what the user sees is what is
// deleted. The service knows which paths are its drive's.
void RecentCloud::remove(const RecentFileInfo &record)
{
    RemoveArg request;
    if (record.path.isEmpty())
        request.item.id = cloudId(record);
    else
        request.extraParam["path"] = fromQt(record.path);
    ask<RemoveResult>(m_proxy, "remove", request, this,
        [this, record](const auto &reply) { onRemoveFinished(record, reply); });
}

void RecentCloud::onRemoveFinished(const RecentFileInfo &record, const CloudReply<RemoveResult> &reply)
{
    if (reply.end == CloudEnd::Refused)
        qCWarning(lcRecent, "a file was not removed: %s", reply.record.errorInfo.errResult.c_str());
    Q_EMIT removeEnded(record, endOf(reply), reply ? toQt(reply.record.recycleId) : QString());
}

void RecentCloud::recover(const QString &recycleId)
{
    RecoverRecyclesArg request;
    request.recycleIds.push_back(fromQt(recycleId));
    request.remakeParents = true;
    ask<RecoverRecyclesResult>(m_proxy, "recoverRecycles", request, this,
        [this, recycleId](const CloudReply<RecoverRecyclesResult> &reply) {
            const bool nothing = reply && reply.record.recoveredIds.empty();
            Q_EMIT recoverEnded(recycleId, nothing ? Ended::Refused : endOf(reply));
        });
}

void RecentCloud::forget(const RecordInfoList &records)
{
    QStringList roamingIds;
    for (const RecentFileInfo &record : records) {
        if (!record.roamingId.isEmpty())
            roamingIds << record.roamingId;
    }
    if (!roamingIds.isEmpty())
        tell(m_proxy, "velaIpcCall",
            KVelaUtil::ipcArg(QStringLiteral("delRoamingFileRecord"),
                {{QStringLiteral("roamingIds"), KVelaUtil::joinIds(roamingIds)}}));
}

void RecentCloud::report(const RecentFileInfo &record)
{
    tell(m_proxy, "velaIpcCall",
        KVelaUtil::ipcArg(
            QStringLiteral("reportCloudDoc"), {{QStringLiteral("file"), toQt(cloudId(record))}}));
}

void RecentCloud::askForRoaming()
{
    if (!isLoggedIn())
        return;
    ask<GetCurrentDefaultRoamingBoxResult>(m_proxy, "getCurrentDefaultRoamingBox",
        GetCurrentDefaultRoamingBoxArg(), this,
        [this](const CloudReply<GetCurrentDefaultRoamingBoxResult> &reply) {
            if (reply)
                Q_EMIT roamingTold(reply.record.roamingOn);
        });
}
