#pragma once

#include "base/sqlite/database.h"
#include "platform/impl/recentstore/records/recenttypes.h"

namespace zel::recent {

/// The store's statements. Failures stay in the connection, to be looked at after a run of calls. Store's
/// thread.
class RecentDatabase
{
public:
    explicit RecentDatabase(sqlite::Database &database) : m_database(database) { }

    /// Everything, newest first. After a failure what could be read until then.
    QVector<StoredRecord> load();
    SourceTable loadSources();
    void write(QVector<StoredRecord> &records); ///< gives new ones their row
    void erase(const QVector<StoredRecord> &records);
    void writeSources(const SourceTable &sources); ///< exactly these
    qint64 dataVersion(); ///< differs from before when another connection has changed the database

private:
    QVector<StoredRecord> loadRecords();
    void loadAccesses(QVector<StoredRecord> &records, const QHash<qint64, int> &places);
    void loadRoaming(QVector<StoredRecord> &records, const QHash<qint64, int> &places);

    sqlite::Database &m_database;
};

} // namespace zel::recent
