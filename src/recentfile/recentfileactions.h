#pragma once

#include "kfiletrash.h"
#include "krecentfile.h"
#include "recentfile/recentcloud.h"

#include <QHash>
#include <QObject>
#include <QQueue>
#include <QSet>
#include <QVector>

/// What the user does with documents of the Recent page besides opening and sharing them. GUI thread; nothing
/// blocks. Works on copies of records: rows may come and go meanwhile.
class RecentFileActions : public QObject
{
    Q_OBJECT
public:
    /// What is worked with; no object is owned. Null means the process's own; without `cloud`, files go to
    /// the desktop's trash directly.
    struct Services
    {
        KRecentFileProxy *store = nullptr;
        KFileTrash *trash = nullptr;
        RecentCloud *cloud = nullptr;
    };

    explicit RecentFileActions(const Services &services, QObject *parent = nullptr);

    void setPinned(const RecordInfoList &records, bool pinned);
    void lookUpSizes();                        ///< of all records; they come as changes of the store
    void report(const RecentFileInfo &record); ///< tells the cloud service that the document is harmful
    void addFiles(const QStringList &paths);   ///< puts local files on the list, as used now
    /// Takes them off the list, here and on other devices; the files stay.
    void removeRecords(const RecordInfoList &records);
    /// Puts those of local files back where they stood, on this device.
    void restoreRecords(const RecordInfoList &records);
    /// Puts the files into the recycle bin and takes the records of those that went there off the list.
    /// filesDeleted() follows exactly once. Another deletion waits for the one under way; records that either
    /// is about already are left out.
    void deleteFiles(const RecordInfoList &records);
    /// Brings back what the last filesDeleted() told of; filesRestored() follows exactly once. Nothing
    /// follows when that was nothing, or was brought back before. What the service could not be asked for can
    /// be tried again, until something else is deleted.
    void undoDelete();
    bool canUndoDelete() const { return !m_deleted.isEmpty(); }

Q_SIGNALS:
    void filesDeleted(const RecordInfoList &deleted, const RecordInfoList &failed);
    void filesRestored(const RecordInfoList &restored, const RecordInfoList &failed);

private:
    /// A file in a recycle bin.
    struct Deleted
    {
        RecentFileInfo record;
        QString recycleId;
        bool byService = false; ///< in the service's bin; else the desktop's, told by KFileTrash
    };

    /// One undo under way.
    struct Undo
    {
        QMultiHash<QString, Deleted> waiting; // by recycle id
        RecordInfoList restored;
        RecordInfoList failed;
        QVector<Deleted> notReached; // of the failed ones
    };

    KRecentFileProxy *store() const;
    KFileTrash *trash() const;
    void onRemoveEnded(const RecentFileInfo &record, RecentCloud::Ended ended, const QString &recycleId);
    void onTrashed(const QString &path, const QString &trashId, KFileTrash::Outcome outcome);
    void noteDeleted(const Deleted &deleted);
    void noteFailed(const RecentFileInfo &record);
    void deleteNext();
    void finishDeleting();
    void noteRestored(const QString &recycleId, RecentCloud::Ended ended);

    Services m_services;
    int m_waitingFor = 0;                           // files of the deletion under way that have not ended
    QSet<QString> m_deletingIds;                    // of the deletion under way and of those that wait
    QQueue<RecordInfoList> m_nextDeletions;         // wait for the one under way
    QMultiHash<QString, RecentFileInfo> m_trashing; // by path: asked of the desktop's trash
    QVector<Deleted> m_underWay;                    // ended well, of the deletion under way
    RecordInfoList m_failed;
    QVector<Deleted> m_deleted; // what an undo brings back
    QVector<Undo> m_undos;      // that have not ended
};
