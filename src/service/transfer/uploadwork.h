#pragma once

#include "service/transfer/transferwork.h"
#include "service/transfer/treefailure.h"

#include <QFileInfo>
#include <QHash>

namespace zel::service {

/// Brings one local file or folder into a drive. Links to folders are not followed, as they may lead
/// anywhere; devices, pipes and sockets are left out. One object a run, on the drive's thread.
class UploadWork
{
public:
    UploadWork(CloudDrive &drive, const TransferTask &task, TransferMonitor &monitor)
        : m_drive(drive), m_task(task), m_monitor(monitor)
    {
    }

    DriveResult<TransferOutcome> run();

private:
    using Children = QHash<QString, DriveItem>;

    QFileInfoList entriesOf(const QString &folder) const;
    void measure(const QString &folder, int depth);
    DriveResult<DriveItem> topFolder();
    /// False: the whole transfer ends.
    bool fill(const QString &source, const DriveItem &target, bool isNew, int depth);
    bool put(const QFileInfo &entry, const DriveItem &target, const Children &there, int depth);
    DriveResult<DriveItem> putFile(
        const QFileInfo &file, const QString &folder, const QString &name, const DriveItem *there);
    DriveResult<Children> childrenOf(const QString &folder);

    CloudDrive &m_drive;
    const TransferTask &m_task;
    TransferMonitor &m_monitor;
    qint64 m_done = 0; ///< bytes of files that are complete
    int m_leftOut = 0;
    TreeFailure m_failure;
};

} // namespace zel::service
