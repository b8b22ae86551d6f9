#pragma once

#include "service/methods/drive/driverecords.h"
#include "service/transfer/transfertable.h"

#include <optional>

/// From requests to tasks: what can be said before a transfer begins. The drive's thread.
namespace zel::service {

class CloudDrive;

/// What is to become of one file or folder that a request names.
struct TransferPlan
{
    std::string key;      ///< path or item id as the request has it
    TransferTask task;    ///< without an id
    vela::CloudItem item; ///< of a download
    bool isHere = false;  ///< nothing has to be transferred; task.info.localPath is the file
    std::optional<vela::ConflictItem> conflict;
    std::optional<vela::ServerErrorInfo> error; ///< also set with a conflict

    bool needsTask() const { return !isHere && !error; }
};
using TransferPlans = std::vector<TransferPlan>;

constexpr int MostPaths = 10000; ///< of one request

/// The plans of a request, or why all of it is refused.
struct PlannedTransfers
{
    PlannedTransfers(TransferPlans made) : plans(std::move(made)) { }
    PlannedTransfers(const DriveError &why) : error(serviceError(why.kind)), text(why.text) { }
    PlannedTransfers(wire::ServiceError why, const QString &reason) : error(why), text(reason) { }

    explicit operator bool() const { return error == wire::ServiceError::None; }

    TransferPlans plans;
    wire::ServiceError error = wire::ServiceError::None;
    QString text;
};

struct UploadWish
{
    QStringList paths;
    std::string groupId;
    std::string parentId;
    QString newName; ///< for all paths, of which there is one; empty: the local name
    int policy = 0;
    int priority = 0;
    std::string batchId;
    bool filesOnly = false;
    bool includeHidden = false;
    QStringList excludedSuffixes;
};
PlannedTransfers planUploads(CloudDrive &drive, const UploadWish &wish, const Identity &identity);

struct DownloadWish
{
    std::vector<vela::DownloadCloudFileInfo> files; ///< without a target path: into targetDir
    QString targetDir;                              ///< empty: the local copies
    QString newName;                                ///< as UploadWish
    int policy = 0;
    std::string batchId;
    bool foldersOnly = false;
};
PlannedTransfers planDownloads(CloudDrive &drive, const DownloadWish &wish, const Identity &identity);

} // namespace zel::service
