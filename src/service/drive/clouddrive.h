#pragma once

#include "service/drive/driveclaim.h"
#include "service/drive/driveresult.h"
#include "service/drive/drivetypes.h"

#include <QVector>

class QIODevice;

namespace zel::service {

/// A drive of documents: a folder of this machine or a server. Every function may take long and may fail:
/// call it on a thread that may wait. The caller owns the threading: one call at a time, all of them on one
/// thread. Functions return when they are done; only those with a progress callback can be cancelled.
/// What fails or is cancelled leaves nothing half done under a real name.
class CloudDrive
{
public:
    virtual ~CloudDrive() = default;

    /// Makes several calls one step for whoever else uses the drive. Not for long ones.
    virtual DriveHold hold() { return {}; }

    virtual QString rootId() const = 0;
    /// Unordered. Kind::NotFound for an id that is none of a folder.
    virtual DriveResult<QVector<DriveItem>> list(const QString &folderId) = 0;
    virtual DriveResult<DriveItem> stat(const QString &id) = 0;
    /// `path` is relative to the root, with "/" between the names; an empty one is the root.
    virtual DriveResult<DriveItem> resolve(const QString &path) = 0;
    virtual DriveResult<DriveItem> child(const QString &folderId, const QString &name) = 0;
    /// The steps to an item, the root first and the item last.
    virtual DriveResult<QVector<DriveItem>> pathOf(const QString &id) = 0;

    virtual DriveResult<DriveItem> createFolder(const QString &parentId, const QString &name) = 0;
    /// An empty file.
    virtual DriveResult<DriveItem> createFile(const QString &parentId, const QString &name) = 0;
    /// Reads `source`, open for reading, from where it stands to its end. A device whose bytes come in later
    /// must know waitForReadyRead().
    virtual DriveResult<DriveItem> write(const QString &parentId, const QString &name, QIODevice &source,
        const DriveWriteOptions &options, const DriveProgress &progress) = 0;
    /// Into `target`, open for writing; what it holds after a failure is unfinished.
    virtual DriveDone read(const QString &id, QIODevice &target, const DriveProgress &progress) = 0;

    /// Copies the file `source` of this machine into the drive; it keeps its time and permissions unless
    /// options name others.
    DriveResult<DriveItem> writeFrom(const QString &parentId, const QString &name, const QString &source,
        DriveWriteOptions options, const DriveProgress &progress);
    /// Into the file `target` of this machine, which is replaced when all is there and untouched otherwise.
    DriveDone readTo(const QString &id, const QString &target, const DriveProgress &progress);

    virtual DriveResult<DriveItem> rename(const QString &id, const QString &name) = 0;
    /// Without a name it keeps the one that it has then.
    virtual DriveResult<DriveItem> move(
        const QString &id, const QString &parentId, const QString &name, DriveConflict conflict) = 0;
    /// A folder with everything in it but what has a name that the drive cannot hold; `leftOut` is set to how
    /// many those were, unless it is null. Without a name the copy has that of the original.
    virtual DriveResult<DriveItem> copy(const QString &id, const QString &parentId, const QString &name,
        DriveConflict conflict, const DriveProgress &progress, int *leftOut = nullptr) = 0;

    /// For good, past the trash, also when the disk is full. A folder of which something is gone is gone,
    /// too: what cannot be removed at once is removed later, out of sight. So is what is purged.
    virtual DriveDone remove(const QString &id) = 0;
    virtual DriveResult<DriveTrashItem> trash(const QString &id) = 0;
    virtual DriveResult<QVector<DriveTrashItem>> listTrash() = 0;
    /// Back to its folder, which is made again when it is gone, under a new name when the old one is taken.
    virtual DriveResult<DriveItem> restore(const QString &trashId) = 0;
    virtual DriveDone purge(const QString &trashId) = 0; ///< for good
    virtual DriveDone emptyTrash() = 0;

    virtual DriveResult<DriveUsage> usage() = 0;
    /// What happened since an earlier answer's cursor, by whomever. Each item below a folder that came or
    /// went has a change of its own; a folder that moved is one change.
    virtual DriveResult<DriveChanges> changesSince(const QString &cursor) = 0;
    /// Items whose name contains `text`, in whichever case; at most `limit` of them.
    virtual DriveResult<QVector<DriveItem>> search(const QString &text, int limit) = 0;
};

} // namespace zel::service
