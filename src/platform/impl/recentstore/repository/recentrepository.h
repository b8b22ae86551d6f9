#pragma once

#include "recentdatabase.h"

#include <functional>

namespace zel::recent {

enum class Durability {
    Relaxed, ///< a power failure may take back the last changes; they can be had again
    Full,    ///< on disk when the call returns
};

/// The store's state and its database. Always usable: a damaged database is kept aside and made anew, and
/// while none can be had the state lives in memory, until writeUnwritten() brings it back to the disk.
/// Several processes may share one database. Store's thread.
class RecentRepository
{
public:
    using KeepingHandler = std::function<void(RecentKeeping)>; ///< it has changed; Kept at first
    /// Works out what to change in the state; may change the sources.
    using Operation = std::function<RecentDelta(const RecentState &, SourceTable &)>;

    RecentRepository(const QString &file, KeepingHandler onKeepingChanged);
    ~RecentRepository() { close(); }

    RecordInfoList open(); ///< what is to be shown, newest first
    bool isFresh() const { return m_sources.isEmpty() && m_state.isEmpty(); } ///< nothing known yet
    const RecentState &state() const { return m_state; }
    const SourceTable &sources() const { return m_sources; }

    /// Does the operation on the newest state, stores its outcome and returns what changed in what is shown.
    /// What cannot be stored holds in memory and is tried again with the next change.
    RecentDelta change(const Operation &operation, Durability durability);

    bool isAway() const { return m_away; } ///< there is a database, but it could not be had so far
    /// There is something that the database did not take yet, and may take later.
    bool hasUnwritten() const { return m_away || (m_connection.isOpen() && isBehind()); }
    /// Tries again. Returns what comes of it in what is shown: by another process, or of the database that
    /// was away. That does not know which states of the lists were read meanwhile.
    RecentDelta writeUnwritten();
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
    bool isBehind() const { return !m_unwritten.isEmpty() || m_sources != m_storedSources; }
    RecentDelta comeBack();
    void forgetAll();
    void keepUnwritten(const RecentDelta &delta);
    void handleFailure();
    void writeEverything();
    void setAside(const QString &why);
    void loseDatabase();
    void tellKept(bool kept);

    const QString m_file;
    const KeepingHandler m_onKeepingChanged;
    sqlite::Database m_connection;
    RecentDatabase m_database{m_connection};
    RecentState m_state;
    SourceTable m_sources;
    SourceTable m_storedSources; ///< as the database has them
    RecentState m_unwritten;     ///< those that are not needed any more are to be erased
    qint64 m_dataVersion = 0;
    int m_repairs = 0;
    bool m_away = false;
    bool m_busy = false;
    bool m_wipeOwed = false; ///< wipe() was wanted while something could not be written
    bool m_toldKept = true;
    bool m_damageTold = false;
};

} // namespace zel::recent
