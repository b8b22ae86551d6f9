#pragma once

#include "service/drive/clouddrive.h"
#include "service/transfer/transfermonitor.h"
#include "service/transfer/transfertask.h"

namespace zel::service {

/// What a transfer that went well brought.
struct TransferOutcome
{
    DriveItem item;    ///< in the drive
    QString localPath; ///< of a download
    int files = 1;
    qint64 size = 0; ///< bytes
    int leftOut = 0; ///< entries of a folder whose names are no UTF-8
};

/// Does a whole transfer with a drive, on the drive's thread. A file is under its real name when it is
/// complete, not before. In a folder a file that fails leaves the others alone, unless none would go better;
/// the first reason is the whole transfer's. What is done of a folder stays when the transfer ends early.
DriveResult<TransferOutcome> transfer(CloudDrive &drive, const TransferTask &task, TransferMonitor &monitor);

} // namespace zel::service
