#include "driveschema.h"

#include <iterator>

namespace zel::service {
namespace {

// Entry n leads from version n to n + 1. Never change one that was delivered; append.
//
// The first ids and the epoch are random, so that ids and cursors of a database that was lost mean nothing
// in the next one. Ids stay below 2^53.
constexpr const char *Migrations[] = {
    R"sql(
CREATE TABLE drive_meta(key TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO drive_meta VALUES('epoch', abs(random() % 1000000000000)), ('floor', 0);
CREATE TABLE drive_item(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    is_folder INTEGER NOT NULL,
    device INTEGER NOT NULL,
    inode INTEGER NOT NULL,
    birth_ns INTEGER NOT NULL,
    size INTEGER NOT NULL,
    mtime_ns INTEGER NOT NULL,
    ctime_ns INTEGER NOT NULL,
    state INTEGER NOT NULL);
CREATE UNIQUE INDEX drive_item_place ON drive_item(parent, name) WHERE state = 0;
CREATE INDEX drive_item_parent ON drive_item(parent);
CREATE INDEX drive_item_inode ON drive_item(inode);
CREATE INDEX drive_item_missing ON drive_item(parent) WHERE state = 1;
INSERT INTO drive_item VALUES(1, 0, '', '', 1, 0, 0, 0, 0, 0, 0, 0);
UPDATE sqlite_sequence SET seq = abs(random() % 1000000000) * 1000000 + 1 WHERE name = 'drive_item';
CREATE TABLE drive_change(
    seq INTEGER PRIMARY KEY AUTOINCREMENT,
    kind INTEGER NOT NULL,
    item INTEGER NOT NULL,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    is_folder INTEGER NOT NULL);
CREATE INDEX drive_change_item ON drive_change(item);
CREATE TABLE drive_trash(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    item INTEGER NOT NULL,
    parent INTEGER NOT NULL,
    folder TEXT NOT NULL,
    name TEXT NOT NULL,
    is_folder INTEGER NOT NULL,
    size INTEGER NOT NULL,
    deleted_at INTEGER NOT NULL,
    place TEXT NOT NULL UNIQUE);
CREATE TABLE drive_temp(id INTEGER PRIMARY KEY, folder INTEGER NOT NULL, name TEXT NOT NULL);
)sql",
};
constexpr int Version = std::size(Migrations);

} // namespace

bool prepareDriveSchema(sqlite::Database &database)
{
    sqlite::Transaction transaction(database);
    database.exec("CREATE TABLE IF NOT EXISTS drive_schema(version INTEGER NOT NULL)");
    const qint64 found = database.number("SELECT version FROM drive_schema");
    if (found > Version)
        return false;
    for (qint64 version = qMax<qint64>(found, 0); version < Version; ++version)
        database.exec(Migrations[version]);
    if (found < Version) {
        database.exec("DELETE FROM drive_schema");
        sqlite::Statement(database, "INSERT INTO drive_schema VALUES(?)").bind(1, qint64(Version)).run();
    }
    return transaction.commit();
}

} // namespace zel::service
