#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"
#include "platform/impl/recentstore/xbel/xbelsources.h"

#include <memory>
#include <optional>

namespace zel::recent {

class RecentThread;
class RoamingSource;

/// The store as the GUI thread sees it: hands wishes to the store's thread, keeps the list that came back,
/// and emits the notices. Its destruction waits until everything told to it is on disk.
class RecentProxy final : public QObject, public KRecentFileProxy
{
    Q_OBJECT
public:
    /// Notices are emitted by `events`, which outlives this object.
    RecentProxy(const RecentPlaces &places, WorkMode mode, KRecentFileEvents &events);
    ~RecentProxy() override;

    bool isKindReady(int kind) const override; ///< all kinds come together
    void initKind(int kind) override;
    RecentKeeping keeping() const override { return m_keeping; }
    RecordInfoList records() const override { return m_records; }
    void requestRoaming(int requestKind, const QString &filter, bool sync) override;
    void removeRecords(const QStringList &ids) override;
    void undoRemoval(const RecordInfoList &records) override;
    void noteOpened(const QString &path) override;
    void noteAllOpened(const QStringList &paths) override;
    void checkPresence(const QStringList &ids) override;
    void lookUpSizes() override;
    void setPinned(const QStringList &ids, bool pinned) override;
    void markRead(const QStringList &ids) override;
    void setCloudService(KCloudSvrProxy *cloud) override;
    void releaseMemory() override;

    /// Has the list read before anybody wants it, so that initKind() may finish at once. After setSources().
    void prepare();
    void setSources(int sources);
    void clearHistory(bool serviceListCleared);

    void onPrepared(const RecordInfoList &records);
    void onLoaded(const RecordInfoList &records);
    void onReplaced(const RecordInfoList &records);
    void onUpdated(const zel::recent::RecentDelta &delta);
    void onKeepingChanged(RecentKeeping keeping);
    void onMarksSeen(const QVector<zel::recent::ReadMark> &marks);
    void onUsed(const QVector<zel::recent::FileUse> &uses);
    void onHistoryCleared(bool completely);
    void onFoldersLeftOut(const QStringList &paths);

private:
    void makeSource();

    KRecentFileEvents &m_events;
    RecordInfoList m_records;
    std::optional<RecordInfoList> m_prepared; ///< until it is wanted
    int m_sources = RecentSource::All;
    RecentKeeping m_keeping = RecentKeeping::Kept;
    bool m_ready = false;
    bool m_loading = false;
    std::unique_ptr<RecentThread> m_thread;
    std::unique_ptr<RoamingSource> m_source; ///< once there is a cloud service
};

} // namespace zel::recent
