#pragma once

#include "service/drive/driveindex.h"

#include <QHash>
#include <QSet>

#include <functional>

namespace zel::service {

/// Brings what the index knows of one folder in line with what is on the disk, and finds out which item is
/// which: an item that another program renamed or moved here keeps its id, and so does a file that was saved
/// by replacing it. What is no longer here becomes missing. One object a run, inside a transaction.
class FolderSync
{
public:
    /// Whether a record's file is still where the record says: then the same inode elsewhere is a hard link.
    using IsThere = std::function<bool(const DriveRecord &)>;

    FolderSync(DriveIndex &index, qint64 folder, IsThere isThere);

    void run(const QVector<disk::Entry> &entries);

private:
    void compare(const QVector<disk::Entry> &entries);
    void settle(const disk::Entry &entry);
    bool movedWithin(const DriveRecord &record) const;
    std::optional<DriveRecord> cameFrom(const disk::Entry &entry);

    DriveIndex &m_index;
    const qint64 m_folder;
    const IsThere m_isThere;
    QHash<QString, DriveRecord> m_vanished; ///< by the name that they had here
    QVector<disk::Entry> m_fresh;           ///< not what stood at that name before
    QMultiHash<quint64, disk::Entry> m_freshInodes;
};

/// Updates a record whose place is unchanged; tells of it when a file's content may have changed.
void refreshRecord(DriveIndex &index, DriveRecord record, const disk::Entry &entry);

/// Whether an entry is the record's file at another place.
bool isSameObject(const DriveRecord &record, const disk::Entry &entry);

/// Whether an entry at the record's place is the record's file.
bool isUnmoved(const DriveRecord &record, const disk::Entry &entry);

} // namespace zel::service
