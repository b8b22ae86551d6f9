#pragma once

#include "service/drive/drivetrash.h"

namespace zel::service {

/// An open folder of the drive.
struct DriveFolder
{
    qint64 id = 0;
    disk::UniqueFd fd;
};

/// The last step of whatever makes or moves items: each gets its name on the disk and its place in the index,
/// or neither. The folders are flushed afterwards, without the hold. The drive's thread.
class DrivePlacing
{
public:
    DrivePlacing(DriveTree &tree, DriveIndex &index, DriveTrash &trash)
        : m_tree(tree), m_index(index), m_trash(trash)
    {
    }

    /// What was made under `hold` just now, empty, gets its id; else it is removed again. Lets go of `hold`.
    DriveResult<DriveItem> adopt(
        const DriveFolder &folder, const QString &name, bool isFolder, DriveHold &hold);
    /// New content gets its name. Not under a hold: somebody may have worked on the folder while it was
    /// written.
    DriveResult<DriveItem> put(TempEntry &temp, const DriveFolder &folder, const QString &name, bool isFolder,
        const DriveWriteOptions &options);
    /// An item that was located under `hold` goes to another folder or gets another name. Lets go of `hold`.
    DriveResult<DriveItem> move(const DriveTree::Spot &spot, qint64 folderId, int folder, const QString &name,
        DriveConflict conflict, DriveHold &hold);

private:
    DriveDone checkReplaced(const DriveFolder &folder, const QString &name, const DriveWriteOptions &options);
    DriveResult<DriveItem> addToIndex(const DriveFolder &folder, const QString &name, TempEntry *temp);
    DriveResult<DriveItem> putInPlace(TempEntry &temp, const DriveFolder &folder, const QString &name,
        bool isFolder, DriveConflict conflict);
    DriveResult<DriveItem> replace(
        TempEntry &temp, DriveRecord record, const DriveFolder &folder, bool isFolder);
    DriveResult<DriveItem> putTrashing(
        TempEntry &temp, const DriveFolder &folder, const QString &name, Unsynced &changed);

    DriveTree &m_tree;
    DriveIndex &m_index;
    DriveTrash &m_trash;
};

} // namespace zel::service
