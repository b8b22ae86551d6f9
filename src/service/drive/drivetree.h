#pragma once

#include "service/drive/driveindex.h"

#include <QSet>

namespace zel::service {

/// Finds items on the disk by id, starting at the drive's folder each time and following no links, and keeps
/// the index in line with what is there. The drive's thread; what reads many folders holds for each alone.
class DriveTree
{
public:
    /// Where an item is at the moment.
    struct Spot
    {
        DriveRecord record;
        disk::UniqueFd parent; ///< the folder it is in; none for the root
    };

    DriveTree(const QString &root, DriveIndex &index);

    /// Kind::NotFound while the drive's folder does not exist, unless it is to be made.
    DriveResult<disk::UniqueFd> openRoot(bool make = false);
    /// Looks where others may have put the item when it is not where it was, which can take long. What is
    /// found stays there while `hold` is held, which is empty at first.
    DriveResult<Spot> locate(qint64 id, DriveHold &hold);
    DriveResult<disk::UniqueFd> openFolder(qint64 id, DriveHold &hold);
    DriveResult<disk::UniqueFd> openFolder(qint64 id); ///< under a hold
    /// The record of a folder's entry, which gets an id when it is new.
    DriveResult<DriveRecord> childOf(qint64 folderId, int folder, const QString &name);

    DriveResult<qint64> idAt(const QString &path); ///< from the root, which is the empty one. Under a hold

    DriveDone sync(qint64 folderId, int folder); ///< one folder
    /// The records of what is in a folder, as far as the index could take them up. Under a hold.
    DriveResult<QVector<DriveRecord>> contentOf(qint64 folderId, int folder);
    DriveDone syncTree(qint64 folderId); ///< a folder and all below it
    DriveDone scan();                    ///< all; what is missing then is removed
    /// Folders by their paths from the root, and the removal of what went from them.
    DriveDone refresh(QStringList folders);

    DriveResult<DriveItem> item(qint64 id); ///< from the index
    DriveItem item(const DriveRecord &record, const QString &folderPath) const;
    static QString pathOf(const QVector<DriveRecord> &chain); ///< from the root, which has an empty one
    const QByteArray &realRoot() const { return m_realRoot; } ///< of the last openRoot()

private:
    DriveResult<Spot> findNow(qint64 id);
    DriveResult<disk::UniqueFd> openFound(const DriveResult<Spot> &spot);
    void refresh(const DriveRecord &record, const disk::Entry &entry);
    DriveDone sync(qint64 folderId, const QVector<disk::Entry> &entries);
    DriveResult<QVector<disk::Entry>> entriesOf(qint64 folderId, int folder);
    DriveResult<disk::UniqueFd> walk(const QVector<DriveRecord> &folders);
    DriveDone syncAncestors(qint64 id);
    DriveDone syncBelow(qint64 folderId, int folder, int depth);
    bool mayExist(qint64 id);
    bool isThere(const DriveRecord &record);
    DriveDone dropMissing(const QVector<qint64> &ids);

    const QString m_root;
    QByteArray m_realRoot;
    DriveIndex &m_index;
    QSet<qint64> m_complained; ///< folders with unreadable names that the log knows of
};

} // namespace zel::service
