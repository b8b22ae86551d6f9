#include "service/transfer/transferrunner.h"

#include "base/clock.h"
#include "base/logging.h"
#include "service/transfer/downloadwork.h"
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

// To one that runs.
ServiceError order(TransferMonitor &monitor, TransferRunner::Step step)
{
    if (step == TransferRunner::Step::Again)
        return ServiceError::Conflict;
    monitor.order(step == TransferRunner::Step::Pause ? Order::Pause : Order::Cancel);
    return ServiceError::None;
}

// To one that does not run: makes it what it is afterwards.
ServiceError apply(TransferRunner::Step step, TransferTask &task)
{
    using Step = TransferRunner::Step;
    const TransferState before = task.state();
    TransferState after = TransferState::Waiting;
    switch (step) {
    case Step::Pause:
        if (before != TransferState::Waiting)
            return ServiceError::Conflict;
        after = TransferState::Paused;
        break;
    case Step::Cancel:
        if (task.hasEnded())
            return ServiceError::NotFound;
        after = TransferState::Cancelled;
        break;
    case Step::Again:
        if (before == TransferState::Waiting || before == TransferState::Done)
            return ServiceError::Conflict;
        task.info.errorInfo = {};
        task.info.unread = false;
        break;
    }
    task.info.transferState = int32_t(after);
    task.info.mtime = nowMs();
    return ServiceError::None;
}

} // namespace

TransferRunner::TransferRunner(TransferTable &table, const DriveThread::Factory &drives) : m_table(table)
{
    for (Lane &lane : m_lanes)
        lane.thread = std::make_unique<DriveThread>(drives);
}

void TransferRunner::start()
{
    if (!m_takenUp) {
        sweep();
        m_takenUp = m_table.takeUpAgain() == ServiceError::None;
    }
    schedule();
}

void TransferRunner::sweep()
{
    TransferTasks begun;
    if (m_table.begun(begun) != ServiceError::None || begun.empty())
        return;
    m_lanes.front().thread->run(
        [begun](CloudDrive &) -> DriveDone {
            for (const TransferTask &task : begun)
                if (!task.isUpload())
                    DownloadWork::sweep(task);
            return DriveOk();
        },
        [](const DriveDone &) {});
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
    if (running().isEmpty())
        Q_EMIT idle();
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
        if (outcome->leftOut > 0)
            info.errorInfo.extraParam["leftOut"] = std::to_string(outcome->leftOut);
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
    return keep({task});
}

// On disk, then told.
ServiceError TransferRunner::keep(const TransferTasks &tasks)
{
    const ServiceError error = tasks.empty() ? ServiceError::None : m_table.update(tasks);
    if (error != ServiceError::None)
        return error;
    for (const TransferTask &task : tasks) {
        Q_EMIT changed(task);
        if (task.state() == TransferState::Cancelled)
            Q_EMIT ended(task, {});
    }
    return error;
}

ServiceError TransferRunner::change(const TransferTasks &tasks, Step step, TransferRefusals &refused)
{
    TransferTasks changing;
    for (TransferTask task : tasks) {
        const Lane *lane = laneOf(task.id());
        const ServiceError error = lane ? order(*lane->monitor, step) : apply(step, task);
        if (error != ServiceError::None)
            refused.insert(task.id(), error);
        else if (!lane)
            changing.push_back(std::move(task));
    }
    const ServiceError error = keep(changing);
    if (step == Step::Again)
        schedule();
    return error;
}

ServiceError TransferRunner::changeOne(const QString &id, Step step)
{
    const auto task = m_table.find(id);
    if (!task)
        return ServiceError::NotFound;
    TransferRefusals refused;
    const ServiceError error = change({*task}, step, refused);
    return refused.value(id, error);
}

ServiceError TransferRunner::pause(const QString &id)
{
    return changeOne(id, Step::Pause);
}

ServiceError TransferRunner::cancel(const QString &id)
{
    return changeOne(id, Step::Cancel);
}

ServiceError TransferRunner::again(const QString &id)
{
    return changeOne(id, Step::Again);
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
