#include "clouddoc/clouddocrecords.h"

#include "cloud/wire/serviceerror.h"
#include "cloud/wire/texts.h"

#include <QSet>
#include <algorithm>
#include <limits>

// What is read from answers and pushes; the requests are in clouddocrecords.cpp.

using namespace zel::vela;

Q_DECLARE_METATYPE(zel::vela::NotifyFileActionArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFilePropertyArg)
Q_DECLARE_METATYPE(zel::vela::NotifyFileTransferArg)

namespace zel::clouddoc {
namespace {

using wire::toQt;
using Errors = std::map<std::string, ServerErrorInfo>;

CloudProblem problemNamed(const std::string &name)
{
    for (int number = 0; number <= int(wire::ServiceError::Internal); ++number)
        if (name == wire::errorName(wire::ServiceError(number)))
            return problemOf(number);
    return CloudProblem::Other;
}

void addFailed(const Errors &errors, CloudOutcome &outcome)
{
    for (const auto &[key, error] : errors) {
        if (outcome.failed++ > 0)
            continue;
        outcome.firstFailed = toQt(key);
        outcome.problem = problemNamed(error.errResult);
        outcome.detail = toQt(error.errString);
    }
}

CloudConflict conflictOf(const ConflictItem &item)
{
    return {toQt(item.item.id), toQt(item.name), toQt(item.suggestedName), documentOf(item.existing),
        item.size, item.mtime};
}

int leftOutOf(const std::map<std::string, std::string> &extraParam)
{
    const auto count = extraParam.find("leftOut");
    return count == extraParam.end() ? 0 : toQt(count->second).toInt();
}

template <class Result> CloudOutcome placedOf(const Result &result)
{
    CloudOutcome outcome;
    for (const CloudItem &item : result.items)
        outcome.documents.append(documentOf(item));
    for (const ConflictItem &conflict : result.conflicts)
        outcome.conflicts.append(conflictOf(conflict));
    addFailed(result.failedItems, outcome);
    outcome.leftOut = leftOutOf(result.extraParam);
    return outcome;
}

CloudTransfer transferOf(const TransferOpertionInfo &info)
{
    CloudTransfer transfer;
    transfer.id = toQt(info.taskId);
    transfer.itemId = toQt(info.item.id);
    transfer.folderId = toQt(info.item.parentId);
    transfer.name = toQt(info.name);
    transfer.localPath = toQt(info.localPath);
    transfer.direction =
        info.transferType == 1 ? CloudTransfer::Direction::Up : CloudTransfer::Direction::Down;
    transfer.state = transferStateOf(info.transferState);
    transfer.folder = info.isFolder;
    transfer.doneBytes = info.doneSize;
    transfer.totalBytes = info.size;
    transfer.bytesPerSecond = qint64(info.averageSpeed);
    transfer.remainingMs = info.remainingTime;
    transfer.askedAt = info.ctime;
    transfer.changedAt = info.mtime;
    if (transfer.state == CloudTransfer::State::Failed)
        transfer.problem = problemNamed(info.errorInfo.errResult);
    transfer.leftOut = leftOutOf(info.errorInfo.extraParam);
    return transfer;
}

CloudTransfer transferOf(const NotifyFileTransferArg &push)
{
    TransferOpertionInfo info;
    info.taskId = push.taskId;
    info.item.id = push.item.id;
    info.item.parentId = push.item.parentId;
    info.name = push.item.name;
    info.localPath = push.localPath;
    info.transferType = push.transferType;
    info.transferState = push.transferState;
    info.isFolder = push.item.type == "folder";
    info.doneSize = push.doneSize;
    info.size = push.size;
    info.averageSpeed = push.averageSpeed;
    info.remainingTime = push.remainingTime;
    info.ctime = info.mtime = push.mtime;
    info.errorInfo = push.errorInfo;
    return transferOf(info);
}

CloudNews actionNews(const NotifyFileActionArg &push)
{
    CloudNews news;
    if (push.action == "remove")
        news.gone.append(toQt(push.item.id));
    else if (push.action == "rename" || push.action == "move" || push.action == "save")
        news.present.append(documentOf(push.item));
    return news;
}

CloudNews propertyNews(const NotifyFilePropertyArg &push)
{
    CloudNews news;
    const std::vector<std::string> &fields = push.changedFields;
    const bool children = std::find(fields.begin(), fields.end(), "children") != fields.end();
    for (const CloudItem &item : push.items) {
        if (children)
            news.unlisted.append(toQt(item.id));
        else
            news.present.append(documentOf(item));
    }
    return news;
}

} // namespace

CloudTransfer::State transferStateOf(int number)
{
    using State = CloudTransfer::State;
    constexpr State States[] = {
        State::Waiting, State::Running, State::Paused, State::Done, State::Failed, State::Cancelled};
    return number >= 1 && number <= int(std::size(States)) ? States[number - 1] : State::Waiting;
}

CloudDocument documentOf(const CloudItem &item)
{
    CloudDocument document;
    document.id = toQt(item.id);
    document.parentId = toQt(item.parentId);
    document.groupId = toQt(item.groupId);
    document.name = toQt(item.name);
    document.folder = item.type == "folder";
    document.size = document.folder ? 0 : item.size;
    document.modifiedAt = item.mtime;
    document.localPath = toQt(item.cache);
    return document;
}

CloudPage pageOf(const GetInfoListResult &result)
{
    CloudPage page;
    page.folder = documentOf(result.folder);
    page.documents.reserve(int(result.items.size()));
    for (const CloudItem &item : result.items)
        page.documents.append(documentOf(item));
    page.total = int(std::min<int64_t>(result.total, std::numeric_limits<int>::max()));
    page.more = result.hasMore && !result.items.empty();
    page.version = result.listVersion;
    return page;
}

CloudCrumbs crumbsOf(const GetItemInfoListV5Result &result)
{
    CloudCrumbs crumbs;
    if (result.paths.empty())
        return crumbs;
    for (const CloudItemPathInfo &step : result.paths.front().steps)
        crumbs.append({toQt(step.id), toQt(step.name)});
    return crumbs;
}

CloudOutcome outcomeOf(const CloudItemsMoveToResult &result)
{
    return placedOf(result);
}

CloudOutcome outcomeOf(const CloudItemsCopyToResult &result)
{
    return placedOf(result);
}

CloudOutcome outcomeOf(const RecoverRecyclesResult &result)
{
    return placedOf(result);
}

CloudOutcome outcomeOf(const BatchRemoveResult &result)
{
    CloudOutcome outcome;
    for (const std::string &id : result.removedIds) {
        outcome.removed.append(toQt(id));
        const auto place = result.extraParam.find(id);
        if (place != result.extraParam.end())
            outcome.recycled.append(toQt(place->second));
    }
    addFailed(result.failedItems, outcome);
    return outcome;
}

CloudOutcome outcomeOf(const UploadItemsResult &result, const QStringList &paths)
{
    CloudOutcome outcome;
    QSet<QString> settled;
    for (const TransferOpertionInfo &task : result.tasks) {
        outcome.transfers.append(transferOf(task));
        settled.insert(toQt(task.localPath));
    }
    for (const auto &[path, error] : result.failedItems)
        settled.insert(toQt(path));
    addFailed(result.failedItems, outcome);
    QStringList open;
    for (const QString &path : paths)
        if (!settled.contains(path))
            open.append(path);
    for (const ConflictItem &item : result.conflicts) {
        CloudConflict conflict = conflictOf(item);
        const auto path = std::find_if(open.begin(), open.end(),
            [&](const QString &one) { return one.section(QLatin1Char('/'), -1) == conflict.name; });
        if (path == open.end())
            continue;
        conflict.source = *path;
        open.erase(path);
        outcome.conflicts.append(conflict);
    }
    return outcome;
}

CloudOutcome outcomeOf(const DownloadItemsResult &result)
{
    CloudOutcome outcome;
    Errors failed = result.failedItems;
    for (const ConflictItem &conflict : result.conflicts) {
        outcome.conflicts.append(conflictOf(conflict));
        failed.erase(conflict.item.id);
    }
    addFailed(failed, outcome);
    for (const DownloadFileInfo &file : result.files) {
        CloudTransfer transfer;
        transfer.id = toQt(file.taskId);
        transfer.itemId = toQt(file.item.id);
        transfer.folderId = toQt(file.item.parentId);
        transfer.name = toQt(file.name);
        transfer.localPath = toQt(file.localPath);
        transfer.direction = CloudTransfer::Direction::Down;
        transfer.state = transferStateOf(file.transferState);
        transfer.totalBytes = file.size;
        if (!transfer.id.isEmpty())
            outcome.transfers.append(transfer);
    }
    return outcome;
}

CloudOutcome outcomeOf(const UpdateTransferInfoResult &result)
{
    CloudOutcome outcome;
    for (const TransferOpertionInfo &task : result.tasks)
        outcome.transfers.append(transferOf(task));
    for (const std::string &id : result.removedTaskIds)
        outcome.removed.append(toQt(id));
    addFailed(result.failedItems, outcome);
    return outcome;
}

CloudTransfers transfersOf(const TransferInfoListResult &result)
{
    CloudTransfers transfers;
    for (const TransferOpertionInfo &task : result.tasks)
        transfers.append(transferOf(task));
    return transfers;
}

CloudNews newsOf(const NotifyFileCreationArg &push)
{
    CloudNews news;
    news.present.append(documentOf(push.item));
    return news;
}

CloudNews newsOf(const QString &method, const QVariant &record)
{
    if (method == QLatin1String("notifyFileAction"))
        return actionNews(record.value<NotifyFileActionArg>());
    if (method == QLatin1String("notifyFileProperty"))
        return propertyNews(record.value<NotifyFilePropertyArg>());
    CloudNews news;
    if (method == QLatin1String("notifyFileTransfer"))
        news.transfers.append(transferOf(record.value<NotifyFileTransferArg>()));
    return news;
}

} // namespace zel::clouddoc
