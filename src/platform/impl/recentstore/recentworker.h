#pragma once

#include "platform/impl/recentstore/desktopnotes.h"
#include "platform/impl/recentstore/recentlooks.h"
#include "platform/impl/recentstore/records/sourcefilter.h"
#include "platform/impl/recentstore/repository/recentrepository.h"
#include "platform/impl/recentstore/xbel/xbelimporter.h"

namespace zel::recent {

/// The store's side that works: lives on the store's thread, owns database and watchers, and tells its news
/// by signals, which the proxy receives queued. finish() ends it; nothing is told afterwards.
class RecentWorker final : public QObject
{
    Q_OBJECT
public:
    RecentWorker(const RecentPlaces &places, WorkMode mode);
    ~RecentWorker() override;

    /// Reads what is on the disk; prepared() follows if that is all that load() would give.
    void prepare();
    void load(); ///< loaded() follows, unless what was prepared still holds
    void noteOpened(const QHash<QString, qint64> &times); ///< by path
    void removeRecords(const QStringList &ids);
    void checkPresence(const QStringList &ids);
    void lookUpSizes();
    void setPinned(const QStringList &ids, bool pinned);
    void setSources(int sources); ///< replaced() follows when a list was handed over
    /// historyCleared() follows, after the lists have been read: what is not known cannot be taken off them.
    void clearHistory(bool serviceListCleared);

    void takeRoaming(const RoamingList &list);
    void keepRoamingOf(const QString &user); ///< empty: of nobody
    void markRead(const QStringList &ids);   ///< marksSeen() follows for those that were unread
    void releaseMemory() { m_repository.releaseMemory(); }
    void tellMarks(); ///< marksSeen() with all that the service does not know yet
    void marksTold(const QVector<ReadMark> &marks);

    void finish(); ///< everything is on disk afterwards

Q_SIGNALS:
    void prepared(const RecordInfoList &records); ///< newest first
    void loaded(const RecordInfoList &records);   ///< newest first
    void replaced(const RecordInfoList &records); ///< in place of a delta that is too large
    void updated(const zel::recent::RecentDelta &delta);
    void marksSeen(const QVector<zel::recent::ReadMark> &marks); ///< the service is still to be told
    void used(const QVector<zel::recent::FileUse> &uses); ///< files that are there and worth telling of
    void keepingChanged(RecentKeeping keeping);
    void historyCleared(bool completely);
    void foldersLeftOut(const QStringList &paths);

private:
    void open();
    bool isBehind() const;
    void planRetry();
    void tryAgain();
    void eraseHistory(bool serviceListCleared);
    void followLists();
    void handOver();
    void take(const XbelImport &import);
    /// Does the operation and tells what it changed; returns the same.
    RecentDelta change(const RecentRepository::Operation &operation, Durability durability);
    void publish(const RecentDelta &delta);
    void lookFor(const RecentDelta &delta);
    void keepLooks(const FileLooks &looks);
    void findMimeTypes(QVector<XbelEdit::Visit> &visits);
    void leaveOut(const QStringList &folders);

    const RecentPlaces m_places;
    const WorkMode m_mode;
    RecentRepository m_repository;
    SourceFilter m_filter;
    std::unique_ptr<XbelImporter> m_importer;
    RecentLooks m_looks;
    RecordInfoList m_firstList;
    DesktopNotes m_notes;
    QTimer m_retry;                       ///< runs only while the disk or the desktop's list lacks something
    std::optional<QString> m_roamingUser; ///< as told last
    std::optional<bool> m_clearWanted;    ///< clearHistory() with this, once the lists have been read
    bool m_scanned = false;               ///< the lists have been read once
    bool m_wanted = false;                ///< somebody has asked for the records
    bool m_open = false;
    bool m_prepared = false;   ///< m_firstList was told
    bool m_handedOver = false; ///< news are told from then on
};

} // namespace zel::recent
