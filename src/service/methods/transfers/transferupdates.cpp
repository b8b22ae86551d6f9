#include "service/methods/transfers/transferupdates.h"

#include "cloud/wire/serviceerror.h"

#include <QSet>
#include <algorithm>

namespace zel::service {

using namespace vela;
using wire::ServiceError;

namespace {

enum Operation {
    Pause = 1,
    Continue = 2,
    Cancel = 3,
    TryAgain = 4,
    TakeOff = 5,
    MarkSeen = 6,
    SetPriority = 7
};

bool isActive(const TransferTask &task)
{
    return task.state() == TransferState::Waiting || task.state() == TransferState::Running;
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

struct TransferUpdates::Work
{
    QString user;
    UpdateTransferInfoArg request;
    Answer<UpdateTransferInfoResult> answer;
    QStringList ids; ///< that are still to be looked at
    QSet<QString> named;
    QSet<QString> missing; ///< of the named ones
    QStringList running;   ///< for the last part
    bool isLast = false;
    UpdateTransferInfoResult result = {};

    bool means(const TransferTask &task) const
    {
        if (request.allTasks)
            return request.transferType == 0 || task.info.transferType == request.transferType;
        return request.batchId == task.info.batchId || named.contains(task.id());
    }
};

void TransferUpdates::update(
    const QString &user, const UpdateTransferInfoArg &request, Answer<UpdateTransferInfoResult> answer)
{
    ServiceError error = ServiceError::None;
    if (request.operation < Pause || request.operation > SetPriority)
        error = ServiceError::InvalidArgument;
    QStringList named;
    for (const std::string &id : request.taskIds)
        named.append(QString::fromStdString(id));
    named.removeDuplicates();
    QStringList ids = named;
    if (error == ServiceError::None && (request.allTasks || !request.batchId.empty()))
        error = m_table.ids(user, ids);
    const QSet<QString> set(named.begin(), named.end());
    const auto work =
        std::make_shared<Work>(Work{user, request, std::move(answer), std::move(ids), set, set, {}});
    if (error != ServiceError::None)
        return work->answer.fail(error, QStringLiteral("The transfer list cannot be changed so."));
    work->isLast = work->ids.size() <= PartSize;
    goOn(work);
}

void TransferUpdates::goOn(const std::shared_ptr<Work> &work)
{
    const QStringList part = work->isLast ? work->ids : work->ids.mid(0, PartSize);
    const ServiceError error = doPart(*work, part);
    if (error != ServiceError::None)
        return work->answer.fail(error, QStringLiteral("The transfer list cannot be changed so."));
    if (work->isLast)
        return answer(*work);
    work->ids.erase(work->ids.begin(), work->ids.begin() + part.size());
    work->isLast = work->ids.isEmpty();
    if (work->isLast)
        work->ids = std::exchange(work->running, {});
    QMetaObject::invokeMethod(
        this, [this, work] { goOn(work); }, Qt::QueuedConnection);
}

ServiceError TransferUpdates::doPart(Work &work, const QStringList &ids)
{
    TransferTasks found;
    ServiceError error = m_table.named(work.user, ids, found);
    QStringList meant;
    TransferTasks changing;
    for (TransferTask &task : found) {
        work.missing.remove(task.id());
        m_runner.addProgress(task.info);
        if (!work.means(task))
            continue;
        if (!work.isLast && task.state() == TransferState::Running) {
            work.running.append(task.id());
            continue;
        }
        meant.append(task.id());
        changing.push_back(std::move(task));
    }
    TransferRefusals refused;
    if (error == ServiceError::None)
        error = change(changing, work.request, refused);
    TransferTasks after;
    if (error == ServiceError::None)
        error = m_table.named(work.user, meant, after);
    fillUpdate(work.result, meant, after, refused);
    return error;
}

void TransferUpdates::answer(Work &work)
{
    UpdateTransferInfoResult &result = work.result;
    // Of "all" and of a batch only those that it makes sense for.
    if (work.request.allTasks || !work.request.batchId.empty())
        result.failedItems.clear();
    for (const QString &id : qAsConst(work.missing))
        result.failedItems[id.toStdString()] =
            wire::errorInfo(ServiceError::NotFound, QStringLiteral("There is no such task."));
    for (TransferOpertionInfo &info : result.tasks)
        m_runner.addProgress(info);
    work.answer.send(result);
}

ServiceError TransferUpdates::change(
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

ServiceError TransferUpdates::takeOff(const TransferTasks &tasks, TransferRefusals &refused)
{
    QStringList going;
    TransferTasks paused;
    for (const TransferTask &task : tasks) {
        if (isActive(task)) {
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

ServiceError TransferUpdates::note(
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

} // namespace zel::service
