#pragma once

#include <QMetaType>
#include <QString>
#include <QVector>

/// Why something in the drive was not done. The page chooses the words.
enum class CloudProblem {
    None,
    NotReached,  ///< no answer: the service is away or took too long; what was asked for may still be done
    NotFound,    ///< the item, or the folder to put it in, is gone
    Exists,      ///< the name is taken
    Denied,      ///< no permission, or a step that makes no sense (a folder into itself)
    InvalidName, ///< or another argument that the service refuses
    DiskFull,
    Io,
    Offline, ///< the drive cannot be reached by the service at present
    Cancelled,
    Other,
};

/// What the user does in the drive.
enum class CloudOperation {
    CreateFolder,
    Rename,
    Move,
    Copy,
    Trash,
    UndoTrash,
    UndoMove,
    UndoCreateFolder,
    UndoRename,
    Upload,
    Download,
    Transfer, ///< cancel, retry or clear transfers
};

/// A file or folder of the drive. A value.
struct CloudDocument
{
    /// What a running transfer does with it.
    enum class Transfer { None, Waiting, Uploading, Downloading, Failed };

    QString id;       ///< stays the same when it is renamed or moved
    QString parentId; ///< of the root's children the root's id
    QString groupId;  ///< the space it lies in
    QString name;
    bool folder = false;
    qint64 size = 0;       ///< bytes; 0 for a folder
    qint64 modifiedAt = 0; ///< ms since epoch, UTC
    QString localPath; ///< the real file or folder on this machine; empty when the drive keeps it elsewhere
    Transfer transfer = Transfer::None;
    int progress = 0; ///< 0 to 100, of the transfer

    bool operator==(const CloudDocument &) const = default;
};
using CloudDocuments = QVector<CloudDocument>;

/// One step of the way from the root to a folder.
struct CloudCrumb
{
    QString id;
    QString name; ///< of the root empty: the page has its own word for it

    bool operator==(const CloudCrumb &) const = default;
};
using CloudCrumbs = QVector<CloudCrumb>; ///< root first, the folder itself last

/// What to do about a name that is taken.
enum class CloudNameChoice {
    Ask,      ///< do not touch it; CloudDocLogic::conflictsFound() tells
    KeepBoth, ///< the new one gets a number, "report (2).odt"
    Replace,  ///< a file goes into the recycle bin (on a download: is overwritten), a folder is merged into
    Skip,
};

/// Something that was not put where it should go because its name is taken there.
struct CloudConflict
{
    QString source; ///< local path of an upload, else the item's id
    QString name;
    QString suggestedName;  ///< that KeepBoth would give; empty when not known
    CloudDocument existing; ///< what has the name; of a download without an id
    qint64 size = 0;        ///< of what was to be put there, bytes; 0 for a folder
    qint64 modifiedAt = 0;  ///< likewise, ms since epoch, UTC; 0: not known

    bool operator==(const CloudConflict &) const = default;
};
using CloudConflicts = QVector<CloudConflict>;

Q_DECLARE_METATYPE(CloudProblem)
Q_DECLARE_METATYPE(CloudOperation)
Q_DECLARE_METATYPE(CloudDocument)
Q_DECLARE_METATYPE(CloudConflict)
