#pragma once

#include "recentdatabase.h"

#include <functional>

namespace zel::recent {

enum class Durability {
    Relaxed, ///< a power failure may take back the last changes; they can be had again
    Full,    ///< on disk when the call returns
};

/// The store's state and its database. Always usable: a damaged database is kept aside and made anew, and
/// without a usable one the state lives in memory for the session. Several processes may share one database.
/// Store's thread.
class RecentRepository
{
public:
    using ProblemHandler = std::function<void(const QString &logText)>;
    /// Works out what to change in the state; may change the sources.
    using Operation = std::function<RecentDelta(const RecentState &, SourceTable &)>;

    RecentRepository(const QString &file, ProblemHandler onProblem);
    ~RecentRepository() { close(); }

    RecordInfoList open(); ///< what is to be shown, newest first
    bool isFresh() const { return m_sources.isEmpty() && m_state.isEmpty(); } ///< nothing known yet
    const RecentState &state() const { return m_state; }
    const SourceTable &sources() const { return m_sources; }

    /// Does the operation on the newest state, stores its outcome and returns what changed in what is shown.
    /// What cannot be stored holds in memory and is tried again with the next change.
    RecentDelta change(const Operation &operation, Durability durability);

    /// There are changes that the database did not take yet.
    bool hasUnwritten() const { return !m_unwritten.isEmpty() || m_sources != m_storedSources; }
    bool isBusy() const { return m_busy && hasUnwritten(); } ///< another process kept them from being written
    RecentDelta writeUnwritten(); ///< returns what another process changed in what is shown
    /// What was erased is not to be found in any file of the store's any more, also not in copies that were
    /// kept aside. Best done after all changes; another process that uses the database may keep it from that.
    void wipe();
    void releaseMemory(); ///< of the database's page cache
    void close();

private:
    bool openDatabase(bool again = false);
    bool loadAll(QVector<StoredRecord> &records, SourceTable &sources);
    RecordInfoList startWith(const QVector<StoredRecord> &records);
    std::optional<RecentState> takeInOthersChanges(); ///< the state before, when there were any
    RecentDelta store(const Operation &operation, Durability durability);
    bool write(RecentDelta &delta, const SourceTable &sources);
    void keepUnwritten(const RecentDelta &delta);
    void handleFailure();
    void writeEverything();
    void setAside(const QString &why);
    void loseDatabase();

    const QString m_file;
    const ProblemHandler m_onProblem;
    sqlite::Database m_connection;
    RecentDatabase m_database{m_connection};
    RecentState m_state;
    SourceTable m_sources;
    SourceTable m_storedSources; ///< as the database has them
    RecentState m_unwritten;     ///< those that are not needed any more are to be erased
    qint64 m_dataVersion = 0;
    int m_repairs = 0;
    bool m_busy = false;
    bool m_memoryTold = false;
    bool m_damageTold = false;
};

} // namespace zel::recent
