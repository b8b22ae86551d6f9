#include "recentfile/recentcloud.h"

#include "base/logging.h"
#include "kcloudsvrproxy.h"

#include <QDateTime>
#include <QFileInfo>

using namespace zel::vela;

namespace {

const auto Caller = "zelbox";
constexpr QLatin1Char IdSeparator('|');

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

RecentCloud::Ended endOf(bool ok, int state)
{
    if (!ok)
        return RecentCloud::Ended::NotReached;
    return state == 0 ? RecentCloud::Ended::Done : RecentCloud::Ended::Refused;
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

QString RecentCloud::call(const char *method, const QGenericArgument &request, const char *slot)
{
    if (!m_proxy)
        return {};
    return m_proxy->asynCallEx(
        QLatin1String(method), request, *slot ? this : nullptr, QString::fromLatin1(slot));
}

void RecentCloud::share(const RecentFileInfo &record)
{
    if (!isLoggedIn())
        return;
    ShowFileShareDlgArg request;
    request.fileId = cloudId(record);
    request.fileName = shownName(record).toStdString();
    request.filePath = record.path.toStdString();
    request.accessTime = QDateTime::fromMSecsSinceEpoch(record.lastAccess).toSecsSinceEpoch();
    request.caller = Caller;
    const QString id =
        call("showFileShareDlg", {"ShowFileShareDlgArg", &request}, "onShowFileShareDlgFinished");
    m_sharing.insert(id, record);
}

void RecentCloud::onShowFileShareDlgFinished(
    bool bOk, const QString &requestId, const ShowFileShareDlgResult &result)
{
    const RecentFileInfo record = m_sharing.take(requestId);
    Q_EMIT shareEnded(record, endOf(bOk, result.state));
}

// A file of this machine goes by its path, also when the cloud has a copy: what the user sees is what is
// deleted. The service knows which paths are its drive's.
void RecentCloud::remove(const RecentFileInfo &record)
{
    RemoveArg request;
    if (record.path.isEmpty())
        request.item.id = cloudId(record);
    else
        request.extraParam["path"] = record.path.toStdString();
    const QString id = call("remove", {"RemoveArg", &request}, "onRemoveFinished");
    if (!id.isEmpty()) {
        m_removing.insert(id, record);
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, record] { Q_EMIT removeEnded(record, Ended::NotReached, {}); }, Qt::QueuedConnection);
}

void RecentCloud::onRemoveFinished(bool bOk, const QString &requestId, const RemoveResult &result)
{
    const RecentFileInfo record = m_removing.take(requestId);
    const Ended ended = endOf(bOk, result.state);
    if (ended == Ended::Refused)
        qCWarning(lcRecent, "a file was not removed: %s", result.errorInfo.errResult.c_str());
    Q_EMIT removeEnded(
        record, ended, ended == Ended::Done ? QString::fromStdString(result.recycleId) : QString());
}

void RecentCloud::recover(const QString &recycleId)
{
    RecoverRecyclesArg request;
    request.recycleIds.push_back(recycleId.toStdString());
    request.remakeParents = true;
    const QString id = call("recoverRecycles", {"RecoverRecyclesArg", &request}, "onRecoverRecyclesFinished");
    if (!id.isEmpty()) {
        m_recovering.insert(id, recycleId);
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, recycleId] { Q_EMIT recoverEnded(recycleId, Ended::NotReached); }, Qt::QueuedConnection);
}

void RecentCloud::onRecoverRecyclesFinished(
    bool bOk, const QString &requestId, const RecoverRecyclesResult &result)
{
    const QString recycleId = m_recovering.take(requestId);
    Ended ended = endOf(bOk, result.state);
    if (ended == Ended::Done && result.recoveredIds.empty())
        ended = Ended::Refused;
    Q_EMIT recoverEnded(recycleId, ended);
}

void RecentCloud::forget(const RecordInfoList &records)
{
    QStringList roamingIds;
    for (const RecentFileInfo &record : records) {
        if (!record.roamingId.isEmpty())
            roamingIds << record.roamingId;
    }
    if (roamingIds.isEmpty())
        return;
    VelaIpcArg envelope;
    envelope.nameSpace = "KVelaIpcCallObj";
    envelope.method = "delRoamingFileRecord";
    envelope.argMap["roamingIds"] = roamingIds.join(IdSeparator).toStdString();
    call("velaIpcCall", {"VelaIpcArg", &envelope});
}

void RecentCloud::report(const RecentFileInfo &record)
{
    VelaIpcArg envelope;
    envelope.nameSpace = "KVelaIpcCallObj";
    envelope.method = "reportCloudDoc";
    envelope.argMap["file"] = cloudId(record);
    call("velaIpcCall", {"VelaIpcArg", &envelope});
}

void RecentCloud::askForRoaming()
{
    if (!isLoggedIn())
        return;
    const GetCurrentDefaultRoamingBoxArg request;
    call("getCurrentDefaultRoamingBox", {"GetCurrentDefaultRoamingBoxArg", &request},
        "onGetCurrentDefaultRoamingBoxFinished");
}

void RecentCloud::onGetCurrentDefaultRoamingBoxFinished(
    bool bOk, const QString &, const GetCurrentDefaultRoamingBoxResult &result)
{
    if (endOf(bOk, result.state) == Ended::Done)
        Q_EMIT roamingTold(result.roamingOn);
}
