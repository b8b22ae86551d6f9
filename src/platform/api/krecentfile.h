#pragma once

#include "zelplatform_export.h"

#include <QDateTime>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVector>

/// Where a record comes from; each kind is one bit. The page shows a mask of them.
namespace RecentRecordKind {
enum : int {
    Roaming = 2,  ///< opened on another device, told by the cloud service
    Opened = 8,   ///< opened in the box
    Desktop = 32, ///< the desktop's recently-used list
    Sandbox = 64, ///< recently-used list of a sandboxed application
};
}

/// Who tells of the documents in the list; bits. The user may switch each off.
namespace RecentSource {
enum : int {
    Desktop = 1, ///< the recently-used lists of the desktop and of sandboxed applications
    Box = 2,     ///< what was opened or pinned in the box
    Devices = 4, ///< uses on other devices, told by the cloud service
    All = Desktop | Box | Devices,
};
}

class KCloudSvrProxy;

/// One recent document. Plain value; copies share their texts.
struct RecentFileInfo
{
    enum class Presence { Unknown, Present, Missing };

    QString id;            ///< identity of the record; for local files the absolute path
    int kind = 0;          ///< one bit of RecentRecordKind
    QString path;          ///< absolute local path; empty for a roaming item without a local file
    QString displayText;   ///< the store's text for the record (file name)
    QString cloudName;     ///< name in the cloud; empty for local records
    QString mimeType;      ///< as the source says; may be empty
    qint64 lastAccess = 0; ///< ms since epoch, UTC
    qint64 size = -1;      ///< bytes, as last seen; -1: not known
    qint64 cloudFileId = 0;
    QString roamingId;        ///< of the cloud service's record; empty for a file that only this device knows
    QString deviceName;       ///< where it was used last when that was not here; else empty
    bool cloudBacked = false; ///< its content is in the cloud
    bool roaming = false;     ///< told by the cloud service, and no file of this device is known for it
    bool pinned = false;      ///< kept at the top of the list by the user
    int unread = -1; ///< what another device did and the user has not seen: 0 new, 1 modified; -1: nothing
    Presence presence = Presence::Unknown;

    bool operator==(const RecentFileInfo &) const = default;
};
Q_DECLARE_TYPEINFO(RecentFileInfo, Q_MOVABLE_TYPE);
using RecordInfoList = QVector<RecentFileInfo>;
Q_DECLARE_METATYPE(RecentFileInfo)
Q_DECLARE_METATYPE(RecordInfoList)

/// Roaming items reported unread, by id.
struct ZelBoxRoamingMsg
{
    QString id;
    QDateTime time;
    bool operator==(const ZelBoxRoamingMsg &) const = default;
};
using ZELBOX_ROAMING_MSGLIST = QMap<QString, ZelBoxRoamingMsg>;
Q_DECLARE_METATYPE(ZELBOX_ROAMING_MSGLIST)

/// How well the store keeps what it is told.
enum class RecentKeeping {
    Kept,     ///< all of it is on disk
    NotKept,  ///< for now in memory only: the database cannot be had or written, which is tried again
    MadeAnew, ///< on disk, but the database was damaged: what only the box knew may be missing
};
Q_DECLARE_METATYPE(RecentKeeping)

/// The store's notices. All are emitted on the GUI thread, never from inside a call of KRecentFileProxy.
class ZELPLATFORM_EXPORT KRecentFileEvents : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

Q_SIGNALS:
    void initFinished();   ///< after KRecentFileProxy::initKind(): records() is complete
    void recordsArrived(); ///< so much changed that the whole list is best read again
    void recordsAdded(const RecordInfoList &records);
    void recordsRemoved(const RecordInfoList &records);
    void recordsChanged(const RecordInfoList &records); ///< time, presence, kind … of records already told of
    void keepingChanged(RecentKeeping keeping);         ///< it is Kept at first
    /// These were noted as opened, but are folders: the list has documents only. What it had of them goes.
    void foldersLeftOut(const QStringList &paths);
    /// After ClearRecentHistory(). False: the desktop's list could not be emptied, so the store keeps which
    /// of its documents are not to be shown.
    void historyCleared(bool completely);
};

/// The recent-file store as the GUI thread sees it. Work happens on the store's own thread.
class ZELPLATFORM_EXPORT KRecentFileProxy
{
public:
    virtual ~KRecentFileProxy() = default;

    virtual bool isKindReady(int kind) const = 0;
    virtual void initKind(
        int kind) = 0; ///< KRecentFileEvents::initFinished() once, perhaps before this returns
    virtual RecentKeeping keeping() const { return RecentKeeping::Kept; } ///< as told last
    virtual RecordInfoList records() const = 0; ///< newest first, each id once; a copy
    /// Reads the roaming records (`requestKind` 1; others are ignored) whose name contains `filter`, from the
    /// cloud service. `sync`: which fetches them from the server first. Changes come as the other notices.
    virtual void requestRoaming(int requestKind, const QString &filter, bool sync) = 0;
    virtual void removeRecords(const QStringList &ids) = 0; ///< forgets them; files stay
    /// Puts removed records of local files back where they stood, as used in the box at their time, and
    /// pinned as they were. Those without a path are left out.
    virtual void undoRemoval(const RecordInfoList &records) = 0;
    /// Notes that the box opened a file: the record moves to now, and the desktop's recently-used list is
    /// told.
    virtual void noteOpened(const QString &path) = 0;
    virtual void noteAllOpened(const QStringList &paths) = 0; ///< the same for many, at one go
    /// Looks on the store's thread whether these records' files exist and how large they are; changes come as
    /// recordsChanged().
    virtual void checkPresence(const QStringList &ids) = 0;
    /// Looks for the sizes that are not known yet, of all records; they come in batches as recordsChanged()
    /// or recordsArrived().
    virtual void lookUpSizes() = 0;
    /// Pins survive a restart, and a pinned record is not dropped for its age.
    virtual void setPinned(const QStringList &ids, bool pinned) = 0;
    /// The user has seen what other devices did: their marks go here and at the cloud service.
    virtual void markRead(const QStringList &ids) = 0;
    /// Where roaming records come from and uses of files here are told; null for nowhere. Not owned, may be
    /// destroyed first. Without a login there is nothing to fetch and nothing is told.
    virtual void setCloudService(KCloudSvrProxy *cloud) = 0;
    virtual void releaseMemory() { } ///< gives back what the store only keeps to be faster

    /// The process's store; null before InitRecentFile() and after UninitRecentFile().
    static KRecentFileProxy *instance();
};

/// How much the store does on its own.
enum class WorkMode {
    ReadOnly, ///< shows what it has; neither follows the desktop's lists nor writes to them
    Full,
};

/// Starts the store (thread, database, watchers). Returns at once. A second call does nothing. GUI thread.
ZELPLATFORM_EXPORT void InitRecentFile(WorkMode mode);
/// Stops the store: everything told to it is on disk when this returns. GUI thread.
ZELPLATFORM_EXPORT void UninitRecentFile();
/// The object that emits the store's notices; lives from the first call to the end of the process.
ZELPLATFORM_EXPORT KRecentFileEvents *RecentFileEventObject();

/// The sources that the list is made of, in this process; all at first. A document that another source tells
/// of as well stays, with what that one says of it; nothing is forgotten, so a source that comes back brings
/// its documents. The list of a running store changes at once, by its notices. GUI thread.
ZELPLATFORM_EXPORT void SetRecentSources(int sources);
ZELPLATFORM_EXPORT int RecentSources();
/// Forgets every document of every source, pins and removals too, takes the documents off the desktop's list,
/// and leaves nothing of them in the store's files. Starts a store when there is none.
/// KRecentFileEvents::historyCleared() follows. Documents themselves stay. GUI thread.
/// `serviceListCleared`: the cloud service has none of them any more; otherwise the store has to remember
/// which of its records are not to come back.
ZELPLATFORM_EXPORT void ClearRecentHistory(bool serviceListCleared);
