#pragma once

#include "service/drive/clouddrive.h"
#include "service/methods/drive/driverecords.h"
#include "service/transfer/transfertask.h"

#include <optional>

/// What several methods look up in a drive. The drive's thread.
namespace zel::service {

/// The folder that a request names; without an id the root.
DriveResult<QString> folderId(CloudDrive &drive, const std::string &groupId, const std::string &parentId);
/// The item that a request names; without an id its folder, or the root.
DriveResult<QString> itemId(CloudDrive &drive, const vela::CloudItemId &item);
/// The same for what changes an item: without an id InvalidName, never the folder in its stead.
DriveResult<QString> namedItemId(CloudDrive &drive, const vela::CloudItemId &item);

/// What may be there or not; an error: it is not known.
template <typename T> using DriveMaybe = DriveResult<std::optional<T>>;

/// Path from the drive's root of a file of this machine; nothing when it lies elsewhere.
DriveMaybe<QString> pathInDrive(CloudDrive &drive, const QString &localPath);
DriveMaybe<DriveTrashItem> inTrash(CloudDrive &drive, const QString &itemId);
DriveMaybe<DriveItem> childNamed(CloudDrive &drive, const QString &folder, const QString &name);

/// Brings an item back from the drive's trash to where it was, and says so in an answer.
template <class Result>
void recoverOne(CloudDrive &drive, const Identity &identity, const std::string &id, Result &result)
{
    const auto item = drive.restore(text(id));
    if (!item) {
        result.failedItems[id] = errorInfo(item.error());
        return;
    }
    result.items.push_back(cloudItem(*item, identity));
    result.recoveredIds.push_back(id);
}

/// The policy that requests give as a number; an unknown one refuses.
ConflictPolicy policyOf(int number);
inline DriveConflict conflictOf(int policy)
{
    return driveConflict(policyOf(policy));
}
/// What stands in the way of `name` in a folder, and a name that is free there.
vela::ConflictItem conflictWith(CloudDrive &drive, const DriveItem &item, const QString &folder,
    const QString &name, const Identity &identity);

} // namespace zel::service
