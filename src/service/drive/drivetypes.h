#pragma once

#include <QString>
#include <QVector>

#include <functional>

namespace zel::service {

/// A file or folder of a drive.
struct DriveItem
{
    QString id;       ///< stays the same when the item is renamed, moved, or saved anew
    QString parentId; ///< empty for the root
    QString name;     ///< empty for the root
    bool isFolder = false;
    qint64 size = 0;   ///< bytes; 0 for a folder
    qint64 ctime = 0;  ///< ms since epoch, UTC: when it was made, as far as the drive knows
    qint64 mtime = 0;  ///< ms since epoch, UTC
    QString version;   ///< differs when the content may differ
    QString localPath; ///< absolute; empty when the drive keeps it elsewhere

    bool operator==(const DriveItem &) const = default;
};

struct DriveTrashItem
{
    QString id;     ///< of the place in the trash, not of the item
    QString itemId; ///< the item's id; it has it again after restoring
    QString name;   ///< that it had
    QString folder; ///< path of the folder it was in, relative to the root, no slash at either end
    bool isFolder = false;
    qint64 size = 0;      ///< bytes; 0 for a folder
    qint64 deletedAt = 0; ///< ms since epoch, UTC
};

struct DriveUsage
{
    qint64 used = 0; ///< bytes of the drive's files, those in the trash included
    qint64 free = 0; ///< bytes that can still be written; -1 when the drive does not tell
};

struct DriveChange
{
    enum class Kind { Created = 0, Modified = 1, Moved = 2, Removed = 3 }; ///< kept in databases

    Kind kind = Kind::Created;
    QString id;
    QString parentId; ///< after the change; of something removed: where it was last
    QString name;     ///< likewise
    bool isFolder = false;
};

struct DriveChanges
{
    QVector<DriveChange> changes; ///< oldest first
    QString cursor;               ///< for the next call
    bool reset = false;           ///< the cursor was empty or too old: what is known has to be listed anew
};

/// What to do when the name is taken. A file never replaces a folder, nor a folder a file.
enum class DriveConflict {
    Fail,     ///< Kind::Exists
    Replace,  ///< the item that is replaced is gone; a folder must be empty (Kind::NotEmpty). When new
              ///< content is written or copied over a file, that file keeps its id.
    KeepBoth, ///< the new one becomes "name (2).ext" or the next number that is free
};

struct DriveWriteOptions
{
    DriveConflict conflict = DriveConflict::Fail;
    qint64 mtime = -1; ///< ms since epoch, UTC, that the file gets; -1: now
    /// Permissions (0777) that a new file gets, -1: those usual here. One that is replaced keeps its own.
    int mode = -1;
    /// Under Replace: the file that is replaced goes to the trash, with its id; the new one has an id of its
    /// own.
    bool trashReplaced = false;
    /// Under Replace: the only item, by its id and its version then, that may be replaced; Kind::Changed when
    /// another one has the name in the end. An empty version takes any.
    QString replacedId = {};
    QString replacedVersion = {};
};

/// Told now and then of a running transfer on the drive's thread: bytes done, bytes in all (-1: not known).
/// false cancels. May be empty.
using DriveProgress = std::function<bool(qint64 done, qint64 total)>;

} // namespace zel::service
