#include "recentschema.h"

#include <iterator>

namespace zel::recent {
namespace {

// Entry n leads from version n to n + 1. Never change one that was delivered; append.
constexpr const char *Migrations[] = {
    R"sql(
CREATE TABLE source(
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    mtime_ns INTEGER NOT NULL,
    size INTEGER NOT NULL,
    inode INTEGER NOT NULL);
CREATE TABLE record(
    id INTEGER PRIMARY KEY,
    path TEXT NOT NULL UNIQUE,
    mime_type TEXT NOT NULL,
    time INTEGER NOT NULL,
    opened_at INTEGER NOT NULL,
    removed_time INTEGER NOT NULL,
    presence INTEGER NOT NULL);
CREATE INDEX record_time ON record(time);
CREATE TABLE access(
    record_id INTEGER NOT NULL,
    source_id INTEGER NOT NULL,
    time INTEGER NOT NULL,
    PRIMARY KEY(record_id, source_id)) WITHOUT ROWID;
)sql",
    "ALTER TABLE record ADD COLUMN missing_since INTEGER NOT NULL DEFAULT 0",
};
static_assert(std::size(Migrations) == SchemaVersion);

bool migrate(sqlite::Database &database)
{
    sqlite::Transaction transaction(database);
    // Read again under the lock: another process may have been quicker.
    for (qint64 version = database.number("PRAGMA user_version"); version >= 0 && version < SchemaVersion;
         ++version)
        database.exec(Migrations[version]);
    database.exec(qPrintable(QStringLiteral("PRAGMA user_version=%1").arg(SchemaVersion)));
    return transaction.commit();
}

} // namespace

SchemaState prepareSchema(sqlite::Database &database)
{
    const qint64 version = database.number("PRAGMA user_version");
    if (version > SchemaVersion)
        return SchemaState::Newer;
    database.useWriteAheadLog();
    database.exec("PRAGMA synchronous=NORMAL");
    database.exec("PRAGMA journal_size_limit=4194304");
    if (version < SchemaVersion)
        migrate(database);
    return database.failure() == sqlite::Failure::None ? SchemaState::Ready : SchemaState::Failed;
}

} // namespace zel::recent
