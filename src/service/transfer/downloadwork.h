#pragma once

#include "base/posix/uniquefd.h"
#include "service/transfer/transferwork.h"
#include "service/transfer/treefailure.h"

namespace zel::service {

/// Brings one file or folder of a drive to this machine. One object a run, on the drive's thread.
class DownloadWork
{
public:
    DownloadWork(CloudDrive &drive, const TransferTask &task, TransferMonitor &monitor)
        : m_drive(drive), m_task(task), m_monitor(monitor)
    {
    }

    DriveResult<TransferOutcome> run();
    /// Removes what attempts of a task left in processes before this one, which have ended.
    static void sweep(const TransferTask &task);

private:
    DriveDone measure(const DriveItem &folder, int depth);
    DriveResult<QString> topFolder(); ///< its path
    /// False: the whole transfer ends.
    bool fill(const DriveItem &source, const QString &target, int depth);
    bool put(const DriveItem &item, const QString &target, int depth);
    DriveResult<QString> putFile(const DriveItem &item, const QString &folder, const QString &name);
    /// `mode`: of the file that will be replaced, -1: of the source.
    DriveDone fetch(const DriveItem &item, const QString &folder, const QString &name, int mode);
    DriveResult<QString> place(const QString &folder, const QString &partial, const QString &name);

    CloudDrive &m_drive;
    const TransferTask &m_task;
    TransferMonitor &m_monitor;
    qint64 m_done = 0; ///< bytes of files that are complete
    int m_leftOut = 0;
    TreeFailure m_failure;
};

} // namespace zel::service
