#include "notify_types.h"
#include "service/dispatch/pushes.h"
#include "service/dispatch/transfersubscriptions.h"
#include "service/methods/transfers/transfermethods.h"

#include <algorithm>

/// The transfer list, and telling of it.
namespace zel::service {

using namespace vela;
using wire::ServiceError;

namespace {

constexpr int DefaultCount = 500;

enum Operation {
    Pause = 1,
    Continue = 2,
    Cancel = 3,
    TryAgain = 4,
    TakeOff = 5,
    MarkSeen = 6,
    SetPriority = 7
};

bool isActive(const TransferOpertionInfo &info)
{
    return info.transferState == int(TransferState::Waiting)
        || info.transferState == int(TransferState::Running);
}

bool ofType(const TransferTask &task, int type)
{
    return type == 0 || task.info.transferType == type;
}

template <class Values, class Value> bool passes(const Values &wanted, const Value &value)
{
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), value) != wanted.end();
}

bool passes(const TransferTask &task, const TransferInfoListArg &request)
{
    return passes(request.transferStates, task.info.transferState)
        && passes(request.taskIds, task.info.taskId)
        && (request.batchId.empty() || request.batchId == task.info.batchId)
        && text(task.info.name).contains(text(request.keyword), Qt::CaseInsensitive);
}

void count(const TransferOpertionInfo &info, TransferInfoListResult &result)
{
    result.runningCount += isActive(info);
    result.pausedCount += info.transferState == int(TransferState::Paused);
    result.doneCount += info.transferState == int(TransferState::Done);
    result.failedCount += info.transferState == int(TransferState::Failed);
    if (info.transferState == int(TransferState::Running))
        (info.transferType == int(TransferType::Upload) ? result.uploadSpeed : result.downloadSpeed) +=
            info.averageSpeed;
}

bool isMeant(const TransferTask &task, const UpdateTransferInfoArg &request, const QSet<QString> &named)
{
    if (request.allTasks)
        return ofType(task, request.transferType);
    return request.batchId == task.info.batchId || named.contains(task.id());
}

// What became of the tasks `ids`; `after` are those of them that are there still.
void fillUpdate(UpdateTransferInfoResult &result, const QStringList &ids, const TransferTasks &after,
    const TransferRefusals &refused)
{
    QSet<QString> gone(ids.begin(), ids.end());
    for (const TransferTask &task : after) {
        gone.remove(task.id());
        if (!refused.contains(task.id()))
            result.tasks.push_back(task.info);
    }
    for (const QString &id : ids) {
        if (refused.contains(id))
            result.failedItems[id.toStdString()] =
                wire::errorInfo(refused.value(id), QStringLiteral("Not in this state."));
        else if (gone.contains(id))
            result.removedTaskIds.push_back(id.toStdString());
    }
}

} // namespace

TransferTasks TransferMethods::tasks(ServiceError &error)
{
    TransferTasks found;
    error = m_table.all(m_context.identity().userId, found);
    for (TransferTask &task : found)
        m_runner.addProgress(task.info);
    return found;
}

void TransferMethods::list(const TransferInfoListArg &request, Answer<TransferInfoListResult> answer)
{
    ServiceError error = ServiceError::None;
    const TransferTasks found = tasks(error);
    if (error != ServiceError::None) {
        answer.fail(error, QStringLiteral("The transfer list cannot be read."));
        return;
    }
    TransferInfoListResult result;
    const int64_t from = qMax(request.offset, 0);
    const int64_t size = request.count > 0 ? request.count : DefaultCount;
    for (const TransferTask &task : found) {
        if (!ofType(task, request.transferType))
            continue;
        count(task.info, result);
        if (!passes(task, request))
            continue;
        if (result.total >= from && int64_t(result.tasks.size()) < size)
            result.tasks.push_back(task.info);
        ++result.total;
    }
    result.hasMore = from + int64_t(result.tasks.size()) < result.total;
    answer.send(result);
}

// The tasks that a request means; of those that it names the ones that are `missing`.
TransferTasks TransferMethods::meant(
    const UpdateTransferInfoArg &request, QSet<QString> &missing, ServiceError &error)
{
    const QStringList ids = texts(request.taskIds);
    const QSet<QString> named(ids.begin(), ids.end());
    TransferTasks found;
    if (!request.allTasks && request.batchId.empty())
        error = m_table.named(m_context.identity().userId, ids, found);
    else
        error = m_table.all(m_context.identity().userId, found);
    missing = named;
    for (TransferTask &task : found) {
        missing.remove(task.id());
        m_runner.addProgress(task.info);
    }
    found.erase(std::remove_if(found.begin(), found.end(),
                    [&](const TransferTask &task) { return !isMeant(task, request, named); }),
        found.end());
    return found;
}

ServiceError TransferMethods::change(
    const TransferTasks &tasks, const UpdateTransferInfoArg &request, TransferRefusals &refused)
{
    using Step = TransferRunner::Step;
    switch (request.operation) {
    case Pause:
        return m_runner.change(tasks, Step::Pause, refused);
    case Continue:
    case TryAgain:
        return m_runner.change(tasks, Step::Again, refused);
    case Cancel:
        return m_runner.change(tasks, Step::Cancel, refused);
    case TakeOff:
        return takeOff(tasks, refused);
    default:
        return note(tasks, request, refused);
    }
}

ServiceError TransferMethods::takeOff(const TransferTasks &tasks, TransferRefusals &refused)
{
    QStringList going;
    TransferTasks paused;
    for (const TransferTask &task : tasks) {
        if (isActive(task.info)) {
            refused.insert(task.id(), ServiceError::Conflict);
            continue;
        }
        going.append(task.id());
        if (!task.hasEnded())
            paused.push_back(task);
    }
    // Somebody may wait for their end.
    const ServiceError error = m_runner.change(paused, TransferRunner::Step::Cancel, refused);
    return error != ServiceError::None || going.isEmpty() ? error : m_table.remove(going);
}

ServiceError TransferMethods::note(
    const TransferTasks &tasks, const UpdateTransferInfoArg &request, TransferRefusals &refused)
{
    TransferTasks noted;
    for (TransferTask task : tasks) {
        // The runner has a copy of one that runs, and writes it at its end.
        if (task.state() == TransferState::Running) {
            refused.insert(task.id(), ServiceError::Conflict);
            continue;
        }
        if (request.operation == MarkSeen)
            task.info.unread = false;
        else
            task.info.priority = request.priority;
        noted.push_back(std::move(task));
    }
    return noted.empty() ? ServiceError::None : m_table.update(noted);
}

void TransferMethods::update(const UpdateTransferInfoArg &request, Answer<UpdateTransferInfoResult> answer)
{
    ServiceError error = ServiceError::None;
    QSet<QString> missing;
    TransferRefusals refused;
    if (request.operation < Pause || request.operation > SetPriority)
        error = ServiceError::InvalidArgument;
    TransferTasks found = error == ServiceError::None ? meant(request, missing, error) : TransferTasks();
    QStringList ids;
    for (const TransferTask &task : found)
        ids.append(task.id());
    if (error == ServiceError::None)
        error = change(found, request, refused);
    TransferTasks after;
    if (error == ServiceError::None)
        error = m_table.named(m_context.identity().userId, ids, after);
    if (error != ServiceError::None) {
        answer.fail(error, QStringLiteral("The transfer list cannot be changed so."));
        return;
    }
    UpdateTransferInfoResult result;
    fillUpdate(result, ids, after, refused);
    // Of "all" and of a batch only those that it makes sense for.
    if (request.allTasks || !request.batchId.empty())
        result.failedItems.clear();
    for (const QString &id : qAsConst(missing))
        result.failedItems[id.toStdString()] =
            wire::errorInfo(ServiceError::NotFound, QStringLiteral("There is no such task."));
    for (TransferOpertionInfo &info : result.tasks)
        m_runner.addProgress(info);
    answer.send(result);
}

void TransferMethods::unreadCount(
    const GetTransferUnreadCountArg &request, Answer<GetTransferUnreadCountResult> answer)
{
    ServiceError error = ServiceError::None;
    const TransferTasks found = tasks(error);
    if (error != ServiceError::None) {
        answer.fail(error, QStringLiteral("The transfer list cannot be read."));
        return;
    }
    GetTransferUnreadCountResult result;
    for (const TransferTask &task : found) {
        if (!ofType(task, request.transferType))
            continue;
        result.runningCount += isActive(task.info);
        if (!task.info.unread)
            continue;
        ++result.unreadCount;
        result.failedCount += task.state() == TransferState::Failed;
        result.lastTime = qMax(result.lastTime, task.info.mtime);
    }
    answer.send(result);
}

ServiceError TransferMethods::cancelTasks(const QStringList &ids)
{
    ServiceError result = ServiceError::NotFound;
    for (const QString &id : ids) {
        const ServiceError error = m_runner.cancel(id);
        if (error == ServiceError::None || result == ServiceError::NotFound)
            result = error;
    }
    return result;
}

QStringList TransferMethods::waitingUploads()
{
    ServiceError error = ServiceError::None;
    QStringList ids;
    for (const TransferTask &task : tasks(error))
        if (task.isUpload() && isActive(task.info))
            ids.append(task.id());
    return ids;
}

int TransferMethods::runningTasks()
{
    ServiceError error = ServiceError::None;
    const TransferTasks found = tasks(error);
    return int(std::count_if(
        found.begin(), found.end(), [](const TransferTask &task) { return isActive(task.info); }));
}

namespace {

NotifyFileTransferArg pushOf(const TransferOpertionInfo &info)
{
    NotifyFileTransferArg push;
    push.taskId = info.taskId;
    push.transferType = info.transferType;
    push.transferState = info.transferState;
    push.progress = info.progress;
    push.doneSize = info.doneSize;
    push.size = info.size;
    push.averageSpeed = info.averageSpeed;
    push.remainingTime = info.remainingTime;
    push.localPath = info.localPath;
    push.item.groupId = info.item.groupId;
    push.item.parentId = info.item.parentId;
    push.item.id = push.item.fileId = info.item.id;
    push.item.name = info.name;
    push.item.type = info.isFolder ? "folder" : "file";
    push.errorInfo = info.errorInfo;
    push.mtime = info.mtime;
    return push;
}

} // namespace

void TransferMethods::tellState(const TransferTask &task)
{
    m_context.pushes.push("notifyFileTransfer", pushOf(task.info));
}

void TransferMethods::tellProgress(const TransferOpertionInfo &info)
{
    const NotifyFileTransferArg push = pushOf(info);
    if (!m_subscriptions) {
        m_context.pushes.push("notifyFileTransfer", push);
        return;
    }
    for (const ClientId client : m_subscriptions->subscribersOf(text(info.taskId)))
        m_context.pushes.pushTo(client, "notifyFileTransfer", push);
}

} // namespace zel::service
