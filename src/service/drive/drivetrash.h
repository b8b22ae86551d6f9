#pragma once

#include "service/drive/drivetree.h"

namespace zel::service {

/// The drive's trash: ".zel-trash/<place>/<name>" inside the drive's folder, so that trashing is a rename,
/// and a row with the original place of each. The row is written first and removed last; rows and folders
/// that do not match after a crash are put right by recover(). The drive's thread; several drives on the same
/// folder and database, each on a thread of its own, get along.
class DriveTrash
{
public:
    DriveTrash(DriveTree &tree, DriveIndex &index) : m_tree(tree), m_index(index) { }

    /// Takes what another drive is just doing for the traces of a crash: before any other is used.
    DriveDone recover();
    DriveResult<DriveTrashItem> put(const DriveTree::Spot &spot);
    DriveResult<QVector<DriveTrashItem>> list(); ///< reads only; leaves out what is not there
    DriveResult<DriveItem> restore(qint64 id);
    DriveDone purge(qint64 id);

private:
    struct Row
    {
        DriveTrashItem item;
        qint64 id = 0;
        qint64 record = 0;
        qint64 parent = 0;
        QString place;
    };

    DriveResult<disk::UniqueFd> open(bool make);
    QVector<Row> rows(qint64 id); ///< 0: all, the latest first
    DriveResult<Row> row(qint64 id);
    qint64 insert(const Row &row);
    DriveDone forget(const Row &row, DriveRecord::State state);
    DriveDone destroy(int trash, const Row &row);
    DriveDone adoptOrphan(int trash, const QString &place);
    DriveResult<qint64> originalFolder(const Row &row);
    DriveResult<DriveItem> finishRestore(const Row &row, qint64 folderId, const disk::Entry &entry);

    DriveTree &m_tree;
    DriveIndex &m_index;
};

} // namespace zel::service
