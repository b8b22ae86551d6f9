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
    R"sql(
ALTER TABLE record ADD COLUMN size INTEGER NOT NULL DEFAULT -1;
ALTER TABLE record ADD COLUMN pin_time INTEGER NOT NULL DEFAULT 0;
CREATE TABLE roaming(
    record_id INTEGER PRIMARY KEY,
    user TEXT NOT NULL,
    roaming_id TEXT NOT NULL,
    file_id TEXT NOT NULL,
    name TEXT NOT NULL,
    device_name TEXT NOT NULL,
    used_path TEXT NOT NULL,
    cache_path TEXT NOT NULL,
    found_path TEXT NOT NULL,
    time INTEGER NOT NULL,
    size INTEGER NOT NULL,
    unread INTEGER NOT NULL,
    forgotten_time INTEGER NOT NULL,
    read_untold INTEGER NOT NULL);
)sql",
};
static_assert(std::size(Migrations) == SchemaVersion);

} // namespace

sqlite::SchemaState prepareSchema(sqlite::Database &database)
{
    if (database.number("PRAGMA user_version") > SchemaVersion)
        return sqlite::SchemaState::Newer;
    database.useWriteAheadLog();
    database.exec("PRAGMA synchronous=NORMAL");
    database.exec("PRAGMA journal_size_limit=4194304");
    return sqlite::migrateFile(database, Migrations);
}

} // namespace zel::recent
