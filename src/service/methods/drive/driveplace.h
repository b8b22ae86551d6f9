#pragma once

#include "service/drive/clouddrive.h"

/// Steps that requests ask for in one go and a drive does in several. What fails on the way is taken back.
/// The drive's thread.
namespace zel::service {

/// A name in a folder, and what to do when it is taken.
struct DrivePlace
{
    QString folder; ///< id
    QString name;   ///< empty: the item keeps its own
    DriveConflict conflict = DriveConflict::Fail;
};

/// KeepBoth takes the next free name; Replace puts what has the name into the trash first.
DriveResult<DriveItem> renameItem(
    CloudDrive &drive, const QString &id, const QString &name, DriveConflict conflict);
/// Moves and renames.
DriveResult<DriveItem> moveItem(CloudDrive &drive, const QString &id, const DrivePlace &place);
/// With Replace what had the name is in the trash afterwards. `leftOut` as in CloudDrive::copy().
DriveResult<DriveItem> copyItem(CloudDrive &drive, const QString &id, const DrivePlace &place,
    const DriveProgress &progress, int *leftOut = nullptr);
/// The place in the trash; empty when it is gone for good.
DriveResult<QString> removeItem(CloudDrive &drive, const QString &id, bool permanent);
/// Each folder of a path, as far as it is missing; the last one. `existed`: it was there.
DriveResult<DriveItem> makeFolders(
    CloudDrive &drive, const QString &folder, const QStringList &names, bool &existed);

} // namespace zel::service
