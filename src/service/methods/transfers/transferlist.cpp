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
