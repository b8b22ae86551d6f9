#include "service/store/schema.h"

namespace zel::service {
namespace {

// 0 without a row.
qint64 versionOf(sqlite::Database &database, const QString &area)
{
    sqlite::Statement statement(database, "SELECT max(version) FROM schema_version WHERE area = ?");
    return statement.bind(1, area).step() ? statement.number(0) : 0;
}

} // namespace

SchemaState prepareSchema(
    sqlite::Database &database, const QString &area, std::span<const char *const> migrations)
{
    // All of it under the write lock, so that two processes that start at once do not both bring it up.
    sqlite::Transaction transaction(database);
    database.exec("CREATE TABLE IF NOT EXISTS schema_version (area TEXT NOT NULL PRIMARY KEY, version "
                  "INTEGER NOT NULL)");
    const qint64 known = qint64(migrations.size());
    const qint64 found = versionOf(database, area);
    if (found > known)
        return SchemaState::Newer;
    for (qint64 version = found; version < known; ++version)
        database.exec(migrations[size_t(version)]);
    if (found < known) {
        sqlite::Statement insert(database, "INSERT OR REPLACE INTO schema_version VALUES (?, ?)");
        insert.bind(1, area).bind(2, known).run();
    }
    return transaction.commit() ? SchemaState::Ready : SchemaState::Failed;
}

} // namespace zel::service
