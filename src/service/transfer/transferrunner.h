#pragma once

#include "service/transfer/drivethread.h"
#include "service/transfer/transfermonitor.h"
#include "service/transfer/transfertable.h"
#include "service/transfer/transferwork.h"

#include <QHash>
#include <QObject>
#include <array>

namespace zel::service {

using TransferRefusals = QHash<QString, wire::ServiceError>; ///< by the tasks' ids

/// Does the tasks of the transfer list, the most urgent first and at most two at once, each on a thread and a
/// drive of its own. Main thread. Nothing wakes it while no task runs.
///
/// Each task that began ends once: done, failed, cancelled or paused; every such step is on disk before it is
/// told. At the end of the service the tasks that run are stopped and go on after the next start.
class TransferRunner final : public QObject
{
    Q_OBJECT
public:
    static constexpr int Lanes = 2;

    TransferRunner(TransferTable &table, const DriveThread::Factory &drives);
    ~TransferRunner() override { stop(); }

    /// Goes on with what a process before left, once; again when the database could not be read.
    void start();
    /// Begins waiting tasks where there is room: after tasks were added or continued.
    void schedule();
    void stop(); ///< waits for the transfers that run to stop

    /// Tasks as the table has them, with how far they are at this moment.
    void addProgress(vela::TransferOpertionInfo &info) const;
    /// The transfer of this item of the drive that runs, if any.
    void addTransferState(vela::CloudItem &item) const;
    QStringList running() const; ///< ids

    // Each gives the task as it is then; "notFound" for an unknown one, "conflict" when it makes no sense
    // now.
    wire::ServiceError pause(const QString &id);
    wire::ServiceError cancel(const QString &id);
    wire::ServiceError again(const QString &id); ///< a paused, failed or cancelled one

    enum class Step { Pause, Cancel, Again };
    /// The same with many tasks as they are now, in one go. Those that it makes no sense for are `refused`; a
    /// failure is that of the database, and nothing has changed then but what runs.
    wire::ServiceError change(const TransferTasks &tasks, Step step, TransferRefusals &refused);

Q_SIGNALS:
    void changed(const TransferTask &task); ///< its state
    void progressed(const vela::TransferOpertionInfo &info);
    /// Follows changed(): it is done, failed or cancelled.
    void ended(const TransferTask &task, const TransferOutcome &outcome);
    void idle(); ///< the last one that ran has ended, and none waits that could be begun

private:
    struct Lane
    {
        std::unique_ptr<DriveThread> thread;
        std::shared_ptr<TransferMonitor> monitor; ///< of the task that runs; null: none
        TransferTask task;
        QElapsedTimer since;
    };

    void sweep();
    bool begin(Lane &lane, TransferTask task);
    void onProgress(const QString &id, const TransferProgress &progress);
    void onMade(const QString &id, const QString &made);
    void onFinished(Lane &lane, const DriveResult<TransferOutcome> &outcome);
    void finish(
        TransferTask &task, const DriveResult<TransferOutcome> &outcome, TransferMonitor::Order order);
    wire::ServiceError setState(TransferTask task, TransferState state);
    wire::ServiceError keep(const TransferTasks &tasks);
    wire::ServiceError changeOne(const QString &id, Step step);
    Lane *laneOf(const QString &id);
    const Lane *laneOf(const QString &id) const { return const_cast<TransferRunner *>(this)->laneOf(id); }

    TransferTable &m_table;
    std::array<Lane, Lanes> m_lanes;
    bool m_takenUp = false; ///< what a process before left
    bool m_stopped = false;
    bool m_scheduling = false;
};

} // namespace zel::service
