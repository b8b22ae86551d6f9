#pragma once

#include "service/drive/drivetransfer.h"
#include "service/drive/drivetrashtable.h"
#include "service/drive/drivetree.h"

namespace zel::service {

/// The drive's trash: ".zel-trash/<place>/<name>" inside the drive's folder, so that trashing is a rename,
/// and a row with the original place of each. The row is written first and removed last; rows and folders
/// that do not match after a crash are put right by recover(). The drive's thread.
class DriveTrash
{
public:
    DriveTrash(DriveTree &tree, DriveIndex &index) : m_tree(tree), m_index(index) { }

    // Under a hold:
    DriveDone recover();
    /// `changed` gets the folders that are to be flushed afterwards.
    DriveResult<DriveTrashItem> put(const DriveTree::Spot &spot, Unsynced &changed);
    DriveResult<QVector<DriveTrashItem>> list(); ///< reads only; leaves out what is not there
    /// An item of the drive, past the trash. Lets go of `hold` for what takes long.
    DriveDone destroy(const DriveTree::Spot &spot, DriveHold &hold);

    // These hold for as long as it matters:
    DriveResult<DriveItem> restore(qint64 id);
    DriveDone purge(qint64 id);

private:
    using Row = DriveTrashRow;

    DriveResult<disk::UniqueFd> open(bool make);
    DriveDone forget(const Row &row, DriveRecord::State state);
    DriveDone moveThere(const DriveTree::Spot &spot, int place, const Row &row);
    DriveDone destroy(int trash, const Row &row);
    DriveDone adoptOrphan(int trash, const QString &place);
    DriveResult<qint64> originalFolder(const Row &row);
    DriveResult<DriveItem> finishRestore(const Row &row, qint64 folderId, const disk::Entry &entry);

    DriveTree &m_tree;
    DriveIndex &m_index;
    DriveTrashTable m_table{m_index};
};

} // namespace zel::service
