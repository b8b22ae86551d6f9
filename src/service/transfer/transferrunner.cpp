#include "service/transfer/transferrunner.h"

#include "base/clock.h"
#include "base/logging.h"
#include "service/transfer/driveerrors.h"

namespace zel::service {

using wire::ServiceError;
using Order = TransferMonitor::Order;

namespace {

qint64 nowMs()
{
    return zel::now().toMSecsSinceEpoch();
}

int percent(qint64 done, qint64 total)
{
    return total > 0 ? int(qBound(qint64(0), done * 100 / total, qint64(100))) : 0;
}

// Numbers of CloudItem::fileState.
int fileState(const TransferTask &task)
{
    if (task.state() == TransferState::Running)
        return task.isUpload() ? 2 : 3;
    return task.state() == TransferState::Failed ? 4 : 1;
}

} // namespace

TransferRunner::TransferRunner(TransferTable &table, const DriveThread::Factory &drives) : m_table(table)
{
    for (Lane &lane : m_lanes)
        lane.thread = std::make_unique<DriveThread>(drives);
}

void TransferRunner::start()
{
    if (!m_takenUp)
        m_takenUp = m_table.takeUpAgain() == ServiceError::None;
    schedule();
}

void TransferRunner::stop()
{
    m_stopped = true;
    for (Lane &lane : m_lanes)
        if (lane.monitor)
            lane.monitor->order(Order::Quit);
    for (Lane &lane : m_lanes)
        lane.thread->stop();
}

TransferRunner::Lane *TransferRunner::laneOf(const QString &id)
{
    for (Lane &lane : m_lanes)
        if (lane.monitor && lane.task.id() == id)
            return &lane;
    return nullptr;
}

QStringList TransferRunner::running() const
{
    QStringList ids;
    for (const Lane &lane : m_lanes)
        if (lane.monitor)
            ids.append(lane.task.id());
    return ids;
}

void TransferRunner::schedule()
{
    if (m_stopped || m_scheduling)
        return;
    m_scheduling = true;
    for (Lane &lane : m_lanes) {
        TransferTasks next;
        while (!lane.monitor && m_table.waiting(1, next) == ServiceError::None && !next.empty())
            if (!begin(lane, std::move(next.front())))
                break;
    }
    m_scheduling = false;
}

bool TransferRunner::begin(Lane &lane, TransferTask task)
{
    task.info.errorInfo = {};
    const QString id = task.id();
    if (setState(task, TransferState::Running) != ServiceError::None)
        return false; // tried again with the next change
    task.info.transferState = int32_t(TransferState::Running);
    lane.task = task;
    lane.since.start();
    const auto post = [this](auto what) { QMetaObject::invokeMethod(this, what, Qt::QueuedConnection); };
    lane.monitor = std::make_shared<TransferMonitor>(
        [this, post, id](
            const TransferProgress &progress) { post([this, id, progress] { onProgress(id, progress); }); },
        [this, post, id](const QString &made) { post([this, id, made] { onMade(id, made); }); });
    lane.thread->run(
        [task, monitor = lane.monitor](CloudDrive &drive) { return transfer(drive, task, *monitor); },
        [this, &lane](const DriveResult<TransferOutcome> &outcome) { onFinished(lane, outcome); });
    return true;
}

void TransferRunner::onProgress(const QString &id, const TransferProgress &progress)
{
    Lane *lane = laneOf(id);
    if (!lane)
        return;
    vela::TransferOpertionInfo &info = lane->task.info;
    info.doneSize = progress.done;
    info.size = progress.total;
    info.progress = percent(progress.done, progress.total);
    info.fileCount = progress.files;
    info.doneCount = progress.filesDone;
    const qint64 elapsed = lane->since.elapsed();
    info.averageSpeed = elapsed > 0 ? double(progress.done) * 1000 / double(elapsed) : 0;
    info.remainingTime = info.averageSpeed > 0
        ? qint64(double(progress.total - progress.done) * 1000 / info.averageSpeed)
        : -1;
    Q_EMIT progressed(info);
}

// On disk, so that the next process goes on in the same folder.
void TransferRunner::onMade(const QString &id, const QString &made)
{
    if (Lane *lane = laneOf(id)) {
        lane->task.made = made;
        m_table.update(lane->task);
    }
}

void TransferRunner::onFinished(Lane &lane, const DriveResult<TransferOutcome> &outcome)
{
    TransferTask task = std::move(lane.task);
    const Order order = lane.monitor->order();
    lane.monitor.reset();
    lane.task = {};
    finish(task, outcome, order);
    if (m_table.update(task) != ServiceError::None)
        qCWarning(
            lcService, "the end of a transfer could not be kept; it is done again after the next start");
    qCInfo(lcService, "transfer %s: state %d %s", task.info.taskId.c_str(), task.info.transferState,
        task.info.errorInfo.errResult.c_str());
    Q_EMIT changed(task);
    if (task.hasEnded())
        Q_EMIT ended(task, outcome ? *outcome : TransferOutcome());
    schedule();
}

void TransferRunner::finish(TransferTask &task, const DriveResult<TransferOutcome> &outcome, Order order)
{
    vela::TransferOpertionInfo &info = task.info;
    info.mtime = nowMs();
    info.averageSpeed = 0;
    info.remainingTime = -1;
    task.resumed = true;
    if (outcome) {
        // Also when it was to be stopped: it was too late for that.
        info.transferState = int32_t(TransferState::Done);
        info.progress = 100;
        info.size = info.doneSize = outcome->size;
        info.fileCount = info.doneCount = outcome->files;
        info.item.groupId = "0";
        info.item.id = outcome->item.id.toStdString();
        info.item.parentId = outcome->item.parentId.toStdString();
        if (!task.isUpload())
            info.localPath = outcome->localPath.toStdString();
        info.unread = true;
        return;
    }
    const bool stopped = outcome.error().kind == DriveError::Kind::Cancelled;
    if (stopped && order == Order::Pause) {
        info.transferState = int32_t(TransferState::Paused);
    } else if (stopped && order == Order::Cancel) {
        info.transferState = int32_t(TransferState::Cancelled);
    } else {
        info.transferState = int32_t(TransferState::Failed);
        info.errorInfo = errorInfo(outcome.error());
        info.unread = true;
    }
}

ServiceError TransferRunner::setState(TransferTask task, TransferState state)
{
    task.info.transferState = int32_t(state);
    task.info.mtime = nowMs();
    const ServiceError error = m_table.update(task);
    if (error == ServiceError::None)
        Q_EMIT changed(task);
    if (error == ServiceError::None && state == TransferState::Cancelled)
        Q_EMIT ended(task, {});
    return error;
}

ServiceError TransferRunner::pause(const QString &id)
{
    if (Lane *lane = laneOf(id)) {
        lane->monitor->order(Order::Pause);
        return ServiceError::None;
    }
    const auto task = m_table.find(id);
    if (!task)
        return ServiceError::NotFound;
    return task->state() == TransferState::Waiting ? setState(*task, TransferState::Paused)
                                                   : ServiceError::Conflict;
}

ServiceError TransferRunner::cancel(const QString &id)
{
    if (Lane *lane = laneOf(id)) {
        lane->monitor->order(Order::Cancel);
        return ServiceError::None;
    }
    const auto task = m_table.find(id);
    if (!task || task->hasEnded())
        return ServiceError::NotFound;
    return setState(*task, TransferState::Cancelled);
}

ServiceError TransferRunner::again(const QString &id)
{
    const auto task = laneOf(id) ? std::nullopt : m_table.find(id);
    if (!task)
        return laneOf(id) ? ServiceError::Conflict : ServiceError::NotFound;
    if (task->state() == TransferState::Waiting || task->state() == TransferState::Done)
        return ServiceError::Conflict;
    TransferTask next = *task;
    next.info.errorInfo = {};
    next.info.unread = false;
    const ServiceError error = setState(next, TransferState::Waiting);
    schedule();
    return error;
}

void TransferRunner::addProgress(vela::TransferOpertionInfo &info) const
{
    if (const Lane *lane = laneOf(QString::fromStdString(info.taskId)))
        info = lane->task.info;
}

void TransferRunner::addTransferState(vela::CloudItem &item) const
{
    for (const Lane &lane : m_lanes) {
        if (!lane.monitor || lane.task.info.item.id != item.id)
            continue;
        item.fileState = fileState(lane.task);
        item.taskId = lane.task.info.taskId;
        item.progress = lane.task.info.progress;
        item.averageSpeed = lane.task.info.averageSpeed;
    }
}

} // namespace zel::service
