#include "clouddoc/clouddoclink.h"

#include "base/logging.h"
#include "kcloudask.h"
#include "kcloudsvrproxy.h"
#include "kvelautil.h"

using namespace zel::vela;
using namespace zel::clouddoc;

CloudDocLink::CloudDocLink(KCloudSvrProxy *proxy, QObject *parent) : QObject(parent), m_proxy(proxy)
{
    if (!proxy)
        return;
    m_reached = proxy->isConnected();
    const KVelaEventObject *events = proxy->velaEventObject();
    connect(events, &KVelaEventObject::SocketConnected, this, [this] { setReached(true); });
    connect(events, &KVelaEventObject::SocketDisConnected, this, [this] { setReached(false); });
    connect(events, &KVelaEventObject::signal_pushArrived, this, &CloudDocLink::onPush);
    connect(events, &KVelaEventObject::signal_notifyFileCreation, this,
        [this](const NotifyFileCreationArg &push) { Q_EMIT newsArrived(newsOf(push)); });
    connect(proxy, &QObject::destroyed, this, [this] { setReached(false); }); // nobody else tells
}

void CloudDocLink::reach()
{
    if (m_proxy && !m_reached)
        m_proxy->startVelaProcess(QString());
}

void CloudDocLink::setReached(bool reached)
{
    if (std::exchange(m_reached, reached) != reached)
        Q_EMIT reachedChanged(reached);
}

void CloudDocLink::onPush(const QString &method, const QVariant &record)
{
    const CloudNews told = newsOf(method, record);
    if (!told.present.isEmpty() || !told.gone.isEmpty() || !told.unlisted.isEmpty()
        || !told.transfers.isEmpty())
        Q_EMIT newsArrived(told);
}

namespace {

template <class Value, class Answer> CloudAnswer<Value> problemOf(const CloudReply<Answer> &reply)
{
    CloudAnswer<Value> answer;
    answer.problem =
        reply.end == CloudEnd::Refused ? zel::clouddoc::problemOf(reply.error) : CloudProblem::NotReached;
    answer.detail = reply.detail;
    return answer;
}

constexpr auto ToOutcome = [](const auto &result) { return outcomeOf(result); };

} // namespace

template <class Answer, class Value, class Read>
void CloudDocLink::ask(
    const char *method, const zel::CloudRequestData &request, Then<Value> then, Read valueOf)
{
    zel::ask<Answer>(m_proxy, method, request, this,
        [method, then = std::move(then), valueOf](const CloudReply<Answer> &reply) {
            if (reply)
                return then({CloudProblem::None, {}, valueOf(reply.record)});
            qCInfo(lcCloud, "%s was not done: %s", method, qUtf8Printable(reply.detail));
            then(problemOf<Value>(reply));
        });
}

void CloudDocLink::listFolder(
    const QString &id, int offset, int count, zel::ListSort sort, qint64 version, Then<CloudPage> then)
{
    ask<GetInfoListResult>(
        "getInfoList", listRequest(id, offset, count, sort, version), std::move(then), pageOf);
}

void CloudDocLink::findPath(const QString &id, Then<CloudCrumbs> then)
{
    const Then<CloudCrumbs> checked = [then = std::move(then)](CloudAnswer<CloudCrumbs> answer) {
        if (answer && answer.value.isEmpty())
            answer.problem = CloudProblem::NotFound;
        then(answer);
    };
    ask<GetItemInfoListV5Result>("getItemInfoListV5", pathRequest(id), checked, crumbsOf);
}

void CloudDocLink::createFolder(const QString &parentId, const QString &name, Then<CloudDocument> then)
{
    ask<CreateFolderResult>("createFolder", createFolderRequest(parentId, name), std::move(then),
        [](const CreateFolderResult &result) { return documentOf(result.item); });
}

void CloudDocLink::rename(const QString &id, const QString &name, Then<CloudDocument> then)
{
    ask<RenameResult>("rename", renameRequest(id, name), std::move(then),
        [](const RenameResult &result) { return documentOf(result.item); });
}

void CloudDocLink::move(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    ask<CloudItemsMoveToResult>(
        "cloudItemsMoveTo", moveRequest(ids, folderId, choice), std::move(then), ToOutcome);
}

void CloudDocLink::copy(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    ask<CloudItemsCopyToResult>(
        "cloudItemsCopyTo", copyRequest(ids, folderId, choice), std::move(then), ToOutcome);
}

void CloudDocLink::remove(const QStringList &ids, Then<CloudOutcome> then)
{
    ask<BatchRemoveResult>("batchRemove", removeRequest(ids), std::move(then), ToOutcome);
}

void CloudDocLink::recover(const QStringList &recycleIds, Then<CloudOutcome> then)
{
    ask<RecoverRecyclesResult>("recoverRecycles", recoverRequest(recycleIds), std::move(then), ToOutcome);
}

void CloudDocLink::upload(
    const QStringList &paths, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    ask<UploadItemsResult>("uploadItems", uploadRequest(paths, folderId, choice), std::move(then),
        [paths](const UploadItemsResult &result) { return outcomeOf(result, paths); });
}

void CloudDocLink::download(
    const QStringList &ids, const QString &folder, CloudNameChoice choice, Then<CloudOutcome> then)
{
    ask<DownloadItemsResult>(
        "downloadItems", downloadRequest(ids, folder, choice), std::move(then), ToOutcome);
}

void CloudDocLink::listTransfers(int count, Then<CloudTransfers> then)
{
    ask<TransferInfoListResult>("transferInfoList", transfersRequest(count), std::move(then), transfersOf);
}

void CloudDocLink::changeTransfers(const QStringList &ids, TransferStep step, Then<CloudOutcome> then)
{
    ask<UpdateTransferInfoResult>(
        "updateTransferInfo", transferStepRequest(ids, step), std::move(then), ToOutcome);
}

void CloudDocLink::subscribeTransfers()
{
    if (!m_proxy)
        return;
    KVelaIpcLoginCache login;
    m_proxy->getUserLoginInfo(&login);
    const VelaIpcArg all = KVelaUtil::ipcArg(QStringLiteral("subscribeTransNotify"),
        {{QStringLiteral("userID"), login.userId}, {QStringLiteral("taskIDs"), QString()},
            {QStringLiteral("subscribe"), QStringLiteral("true")}});
    m_proxy->asynCallEx(QStringLiteral("velaIpcCall"), QArgument<VelaIpcArg>("VelaIpcArg", all), this,
        QStringLiteral("onSubscribeTransNotify"));
}

void CloudDocLink::onSubscribeTransNotify(bool bOk, const QString &, const VelaIpcResult &result)
{
    if (!bOk || result.state != 0)
        qCWarning(lcCloud, "the service does not tell how far transfers are: %d", result.state);
}
