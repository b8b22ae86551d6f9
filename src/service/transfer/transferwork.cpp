#include "service/transfer/transferwork.h"

#include "service/transfer/downloadwork.h"
#include "service/transfer/uploadwork.h"

namespace zel::service {

DriveResult<TransferOutcome> transfer(CloudDrive &drive, const TransferTask &task, TransferMonitor &monitor)
{
    if (monitor.order() != TransferMonitor::Order::GoOn)
        return DriveError{DriveError::Kind::Cancelled, QStringLiteral("stopped before it began")};
    if (task.isUpload())
        return UploadWork(drive, task, monitor).run();
    return DownloadWork(drive, task, monitor).run();
}

} // namespace zel::service
