#pragma once

#include "krecentfile.h"
#include "roamingtypes.h"

#include <QHash>
#include <QStringList>
#include <QVarLengthArray>
#include <QVector>

#include <optional>

/// The values that the store's pieces hand one another. Plain, without behaviour beyond what derives from
/// them.
namespace zel::recent {

inline const QString FolderMimeType = QStringLiteral("inode/directory");

/// Which state of a list file was read; a list with the same stamp is not read again.
struct FileStamp
{
    qint64 mtimeNs = 0;
    qint64 size = 0;
    qint64 inode = 0;
    bool operator==(const FileStamp &) const = default;
};

/// One bookmark of a recently-used list.
struct XbelEntry
{
    QString path;     ///< absolute and clean
    QString mimeType; ///< may be empty
    qint64 time = 0;  ///< newest believable one of added, modified, visited; ms since epoch
    bool isPrivate = false;
    QStringList applications;   ///< that registered it
    bool isTimeGuessed = false; ///< the list tells none that can be; `time` is that of the list's file
    bool operator==(const XbelEntry &) const = default;
};

inline constexpr int DesktopSource = 1; ///< every other source is the list of a sandboxed application
inline const QString DesktopSourceName = QStringLiteral("desktop");

/// When a source says that the file was last used.
struct RecentAccess
{
    int source = DesktopSource;
    qint64 time = 0; ///< negated: a time ahead of the clock that a removal has forgotten
    bool operator==(const RecentAccess &) const = default;
};

/// Everything the store knows of one document. The record that is shown derives from it.
struct StoredRecord
{
    QString id; ///< absolute path; of a document that only the cloud service tells of roamingRecordId()
    QString mimeType;
    qint64 rowId = 0;        ///< 0: not in the database yet
    qint64 openedAt = 0;     ///< last opened in the box; 0: never
    qint64 removedTime = -1; ///< uses up to this time are forgotten; -1: never removed
    qint64 pinTime = 0;      ///< newest use known while it was pinned; 0: it is not pinned
    qint64 size = -1;        ///< of the local file, as last seen; -1: not known
    RecentFileInfo::Presence presence = RecentFileInfo::Presence::Unknown; ///< of the local file
    qint64 missingSince = 0;                   ///< when it was first found missing; 0: it is not
    QVarLengthArray<RecentAccess, 2> accesses; ///< one per source that lists the path
    RoamingRef roaming;

    bool operator==(const StoredRecord &) const = default;

    bool isRoamingOnly() const;                                  ///< by its id
    bool isFolder() const { return mimeType == FolderMimeType; } ///< which is no document
    bool hasLocalUse() const;                                    ///< opened here, listed or pinned
    qint64 lastLocalUse() const;
    qint64 lastAccess() const; ///< newest of all uses, also those that other devices and the pin know
    int
    kind() const; ///< of the newest local use, Opened before Desktop before Sandbox when equal; else Roaming
    bool isVisible() const; ///< a document with a use that is newer than the removal
    bool isNeeded() const;  ///< false: nothing is lost when the record is dropped
    bool isBoxOnly() const; ///< no list tells of it, and it is not pinned
    const RecentAccess *accessOf(int source) const;
    void setAccess(int source, qint64 time); ///< a forgotten time stays forgotten
    void dropAccess(int source);
    RecentFileInfo toInfo() const;
};

inline constexpr std::tuple StoredRecordFields{
    Field("path", &StoredRecord::id).shownAs(&RecentFileInfo::id),
    Field("mime_type", &StoredRecord::mimeType).shownAs(&RecentFileInfo::mimeType),
    Field("opened_at", &StoredRecord::openedAt),
    Field("removed_time", &StoredRecord::removedTime),
    Field("presence", &StoredRecord::presence).shownAs(&RecentFileInfo::presence),
    Field("missing_since", &StoredRecord::missingSince).since(2),
    Field("size", &StoredRecord::size).shownAs(&RecentFileInfo::size).since(3),
    Field("pin_time", &StoredRecord::pinTime).since(3),
};

QString roamingRecordId(const QString &roamingId);

using RecentState = QHash<QString, StoredRecord>; ///< by id

/// A source as the database remembers it.
struct SourceInfo
{
    int id = 0;
    FileStamp stamp;
    bool operator==(const SourceInfo &) const = default;
};
using SourceTable = QHash<QString, SourceInfo>; ///< by name: "desktop", "sandbox:<application>"

/// What a look at a file found.
struct FileLook
{
    RecentFileInfo::Presence presence = RecentFileInfo::Presence::Unknown;
    qint64 size = -1; ///< of a regular file; else -1
    qint64 mtime = 0; ///< ms since epoch, UTC
    bool isFolder = false;
    bool operator==(const FileLook &) const = default;
};
using FileLooks = QHash<QString, FileLook>; ///< by path

/// What one operation changes: in the store, and in the list that is shown.
struct RecentDelta
{
    QVector<StoredRecord> stored; ///< new or altered
    QVector<StoredRecord> erased;
    RecordInfoList added;
    RecordInfoList removed;
    RecordInfoList changed;

    bool storesNothing() const { return stored.isEmpty() && erased.isEmpty(); }
    bool showsNothing() const { return added.isEmpty() && removed.isEmpty() && changed.isEmpty(); }
    int shownCount() const { return added.size() + removed.size() + changed.size(); }
    RecentDelta &operator+=(const RecentDelta &other); ///< which is about other records
};

/// What a list said when it was read.
struct XbelImport
{
    QString source;                 ///< name
    std::optional<FileStamp> stamp; ///< none: the file changed while it was read, so read it again
    QVector<XbelEntry> entries;
    bool intact = false; ///< read to its proper end; only then may missing entries be taken as removed
    bool gone = false;   ///< the sandboxed application was uninstalled with its data
};

} // namespace zel::recent

Q_DECLARE_METATYPE(zel::recent::FileLooks)
Q_DECLARE_METATYPE(zel::recent::RecentDelta)
Q_DECLARE_METATYPE(zel::recent::XbelImport)
