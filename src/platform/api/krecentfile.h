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
    qint64 cloudFileId = 0;
    bool cloudBacked = false;
    bool roaming = false;
    int unread = -1; ///< -1: not unread
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
    void storeProblem(const QString &logText); ///< the store was damaged or cannot be written; said once
};

/// The recent-file store as the GUI thread sees it. Work happens on the store's own thread.
class ZELPLATFORM_EXPORT KRecentFileProxy
{
public:
    virtual ~KRecentFileProxy() = default;

    virtual bool isKindReady(int kind) const = 0;
    virtual void initKind(int kind) = 0;        ///< KRecentFileEvents::initFinished() follows once
    virtual RecordInfoList records() const = 0; ///< newest first; a copy
    virtual void requestRoaming(int requestKind, const QString &filter, bool sync) = 0;
    virtual void removeRecords(const QStringList &ids) = 0; ///< forgets them; files stay
    /// Notes that the box opened a file: the record moves to now, and the desktop's recently-used list is
    /// told.
    virtual void noteOpened(const QString &path) = 0;
    /// Looks on the store's thread whether these records' files exist; changes come as recordsChanged().
    virtual void checkPresence(const QStringList &ids) = 0;

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
