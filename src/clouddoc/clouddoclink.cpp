#include "clouddoc/clouddoclink.h"

#include "base/logging.h"
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
        [this](const NotifyFileCreationArg &push) { Q_EMIT news(newsOf(push)); });
    connect(proxy, &QObject::destroyed, this, &CloudDocLink::endAll);
}

void CloudDocLink::setReached(bool reached)
{
    if (std::exchange(m_reached, reached) != reached)
        Q_EMIT reachedChanged(reached);
}

void CloudDocLink::onPush(const QString &method, const QVariant &record)
{
    const CloudNews told = newsOf(method, record);
    if (told.room || !told.present.isEmpty() || !told.gone.isEmpty() || !told.unlisted.isEmpty()
        || !told.transfers.isEmpty())
        Q_EMIT news(told);
}

template <class Record, class Value, class Read>
void CloudDocLink::ask(
    const char *method, const QGenericArgument &request, const char *slot, Then<Value> then, Read read)
{
    const QString name = QLatin1String(method);
    Ending ending = [name, then = std::move(then), read](const void *record) {
        CloudAnswer<Value> answer;
        const auto *result = static_cast<const Record *>(record);
        if (!result) {
            answer.problem = CloudProblem::NotReached;
            answer.detail = QStringLiteral("The cloud service did not answer.");
        } else {
            read(*result, answer);
        }
        if (!answer)
            qCInfo(lcCloud, "%s was not done: %s", qUtf8Printable(name), qUtf8Printable(answer.detail));
        then(answer);
    };
    const QString id = m_proxy ? m_proxy->asynCallEx(name, request, this, QLatin1String(slot)) : QString();
    if (!id.isEmpty())
        m_waiting.insert(id, std::move(ending));
    else
        QMetaObject::invokeMethod(
            this, [ending = std::move(ending)] { ending(nullptr); }, Qt::QueuedConnection);
}

void CloudDocLink::end(const QString &requestId, const void *record)
{
    if (const Ending ending = m_waiting.take(requestId))
        ending(record);
}

// Nobody else tells those who wait.
void CloudDocLink::endAll()
{
    setReached(false);
    const QStringList ids = m_waiting.keys();
    for (const QString &id : ids)
        QMetaObject::invokeMethod(
            this, [this, id] { end(id, nullptr); }, Qt::QueuedConnection);
}

namespace {

// The value of an answer that the service did not refuse.
template <class Read> auto accepted(Read valueOf)
{
    return [valueOf](const auto &result, auto &answer) {
        answer.problem = problemOf(result.state);
        if (answer)
            answer.value = valueOf(result);
        else
            answer.detail = QString::fromStdString(result.errorInfo.errString);
    };
}

constexpr auto ToOutcome = [](const auto &result) { return outcomeOf(result); };

} // namespace

void CloudDocLink::listFolder(
    const QString &id, int offset, int count, CloudSort sort, qint64 version, Then<CloudPage> then)
{
    const GetInfoListArg request = listRequest(id, offset, count, sort, version);
    ask<GetInfoListResult>(
        "getInfoList", {"GetInfoListArg", &request}, "onPage", std::move(then), accepted(pageOf));
}

void CloudDocLink::findPath(const QString &id, Then<CloudCrumbs> then)
{
    const GetItemInfoListV5Arg request = pathRequest(id);
    ask<GetItemInfoListV5Result>("getItemInfoListV5", {"GetItemInfoListV5Arg", &request}, "onPath",
        std::move(then), [](const GetItemInfoListV5Result &result, CloudAnswer<CloudCrumbs> &answer) {
            accepted(crumbsOf)(result, answer);
            if (answer && answer.value.isEmpty())
                answer.problem = CloudProblem::NotFound;
        });
}

void CloudDocLink::createFolder(const QString &parentId, const QString &name, Then<CloudDocument> then)
{
    const CreateFolderArg request = createFolderRequest(parentId, name);
    ask<CreateFolderResult>("createFolder", {"CreateFolderArg", &request}, "onFolder", std::move(then),
        accepted([](const CreateFolderResult &result) { return documentOf(result.item); }));
}

void CloudDocLink::rename(const QString &id, const QString &name, Then<CloudDocument> then)
{
    const RenameArg request = renameRequest(id, name);
    ask<RenameResult>("rename", {"RenameArg", &request}, "onRenamed", std::move(then),
        accepted([](const RenameResult &result) { return documentOf(result.item); }));
}

void CloudDocLink::move(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    const CloudItemsMoveToArg request = moveRequest(ids, folderId, choice);
    ask<CloudItemsMoveToResult>("cloudItemsMoveTo", {"CloudItemsMoveToArg", &request}, "onMoved",
        std::move(then), accepted(ToOutcome));
}

void CloudDocLink::copy(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    const CloudItemsCopyToArg request = copyRequest(ids, folderId, choice);
    ask<CloudItemsCopyToResult>("cloudItemsCopyTo", {"CloudItemsCopyToArg", &request}, "onCopied",
        std::move(then), accepted(ToOutcome));
}

void CloudDocLink::remove(const QStringList &ids, Then<CloudOutcome> then)
{
    const BatchRemoveArg request = removeRequest(ids);
    ask<BatchRemoveResult>(
        "batchRemove", {"BatchRemoveArg", &request}, "onRemoved", std::move(then), accepted(ToOutcome));
}

void CloudDocLink::recover(const QStringList &recycleIds, Then<CloudOutcome> then)
{
    const RecoverRecyclesArg request = recoverRequest(recycleIds);
    ask<RecoverRecyclesResult>("recoverRecycles", {"RecoverRecyclesArg", &request}, "onRecovered",
        std::move(then), accepted(ToOutcome));
}

void CloudDocLink::upload(
    const QStringList &paths, const QString &folderId, CloudNameChoice choice, Then<CloudOutcome> then)
{
    const UploadItemsArg request = uploadRequest(paths, folderId, choice);
    ask<UploadItemsResult>("uploadItems", {"UploadItemsArg", &request}, "onUpload", std::move(then),
        accepted([paths](const UploadItemsResult &result) { return outcomeOf(result, paths); }));
}

void CloudDocLink::download(
    const QStringList &ids, const QString &folder, CloudNameChoice choice, Then<CloudOutcome> then)
{
    const DownloadItemsArg request = downloadRequest(ids, folder, choice);
    ask<DownloadItemsResult>(
        "downloadItems", {"DownloadItemsArg", &request}, "onDownload", std::move(then), accepted(ToOutcome));
}

void CloudDocLink::listTransfers(int count, Then<CloudTransfers> then)
{
    const TransferInfoListArg request = transfersRequest(count);
    ask<TransferInfoListResult>("transferInfoList", {"TransferInfoListArg", &request}, "onTransfers",
        std::move(then), accepted(transfersOf));
}

void CloudDocLink::changeTransfers(const QStringList &ids, TransferStep step, Then<CloudOutcome> then)
{
    const UpdateTransferInfoArg request = transferStepRequest(ids, step);
    ask<UpdateTransferInfoResult>("updateTransferInfo", {"UpdateTransferInfoArg", &request}, "onTransferStep",
        std::move(then), accepted(ToOutcome));
}

void CloudDocLink::readRoom(Then<CloudRoom> then)
{
    const GetStorageInfoArg request;
    ask<GetStorageInfoResult>(
        "getStorageInfo", {"GetStorageInfoArg", &request}, "onRoom", std::move(then), accepted(roomOf));
}

void CloudDocLink::subscribeTransfers()
{
    if (!m_proxy)
        return;
    const VelaIpcArg request = KVelaUtil::ipcArg(
        QStringLiteral("subscribeTransNotify"), {{QStringLiteral("subscribe"), QStringLiteral("true")}});
    m_proxy->asynCallEx(QStringLiteral("velaIpcCall"), {"VelaIpcArg", &request}, nullptr, QString());
}

void CloudDocLink::onPage(bool bOk, const QString &requestId, const GetInfoListResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onPath(bool bOk, const QString &requestId, const GetItemInfoListV5Result &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onFolder(bool bOk, const QString &requestId, const CreateFolderResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onRenamed(bool bOk, const QString &requestId, const RenameResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onMoved(bool bOk, const QString &requestId, const CloudItemsMoveToResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onCopied(bool bOk, const QString &requestId, const CloudItemsCopyToResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onRemoved(bool bOk, const QString &requestId, const BatchRemoveResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onRecovered(bool bOk, const QString &requestId, const RecoverRecyclesResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onUpload(bool bOk, const QString &requestId, const UploadItemsResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onDownload(bool bOk, const QString &requestId, const DownloadItemsResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onTransfers(bool bOk, const QString &requestId, const TransferInfoListResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onTransferStep(bool bOk, const QString &requestId, const UpdateTransferInfoResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}

void CloudDocLink::onRoom(bool bOk, const QString &requestId, const GetStorageInfoResult &result)
{
    end(requestId, bOk ? &result : nullptr);
}
