#pragma once

#include "service/drive/drivetypes.h"
#include "transfer_types.h"

#include <QStringList>

namespace zel::service {

/// What a transfer does and how far it is; numbers as TransferOpertionInfo and the link have them.
enum class TransferType { Upload = 1, Download = 2 };
enum class TransferState { Waiting = 1, Running = 2, Paused = 3, Done = 4, Failed = 5, Cancelled = 6 };
enum class ConflictPolicy { Refuse = 0, KeepBoth = 1, Replace = 2, Skip = 3 };

/// One task. A value; it is kept in the database as it is, so that it goes on after a restart.
struct TransferTask
{
    vela::TransferOpertionInfo info; ///< id, source, state, and what came of it

    // Where to:
    QString folder; ///< of an upload the cloud folder's id, of a download a local folder
    QString name;   ///< there
    ConflictPolicy policy = ConflictPolicy::Refuse;
    bool includeHidden = false;
    QStringList excludedSuffixes; ///< lower case without the dot

    /// The folder that this task made or fills, as id or path: a later attempt goes on in it. Empty for a
    /// file.
    QString made;
    bool resumed = false; ///< an earlier attempt may have done part of it

    QString id() const { return QString::fromStdString(info.taskId); }
    TransferState state() const { return TransferState(info.transferState); }
    bool isUpload() const { return info.transferType == int(TransferType::Upload); }
    bool hasEnded() const { return state() >= TransferState::Done; }
};

/// Skip fails as well: whoever skips asks first.
inline DriveConflict driveConflict(ConflictPolicy policy)
{
    switch (policy) {
    case ConflictPolicy::KeepBoth:
        return DriveConflict::KeepBoth;
    case ConflictPolicy::Replace:
        return DriveConflict::Replace;
    case ConflictPolicy::Refuse:
    case ConflictPolicy::Skip:
        break;
    }
    return DriveConflict::Fail;
}

} // namespace zel::service
