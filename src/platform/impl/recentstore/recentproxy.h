#pragma once

#include "recenttypes.h"
#include "xbelsources.h"

#include <memory>

namespace zel::recent {

class RecentThread;

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
    RecordInfoList records() const override { return m_records; }
    /// Does nothing: records of other devices come from the cloud service, which tells the store of none yet.
    void requestRoaming(int requestKind, const QString &filter, bool sync) override;
    void removeRecords(const QStringList &ids) override;
    void noteOpened(const QString &path) override;
    void checkPresence(const QStringList &ids) override;

    void onLoaded(const RecordInfoList &records);
    void onReplaced(const RecordInfoList &records);
    void onUpdated(const zel::recent::RecentDelta &delta);
    void onProblem(const QString &logText);

private:
    KRecentFileEvents &m_events;
    RecordInfoList m_records;
    bool m_ready = false;
    bool m_loading = false;
    std::unique_ptr<RecentThread> m_thread;
};

} // namespace zel::recent
