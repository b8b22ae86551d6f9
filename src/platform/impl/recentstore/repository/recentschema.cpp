#include "recentschema.h"

#include "platform/impl/recentstore/records/recenttypes.h"

#include <QByteArray>

#include <vector>

namespace zel::recent {
namespace {

// What a version begins with; the columns that it adds to known tables follow from their fields. Version n's
// text stands at n - 1. Never change one that was delivered; for a new table, append.
constexpr const char *Tables[] = {
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
    "",
    R"sql(
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

QByteArray literal(const QString &text)
{
    return '\'' + text.toUtf8().replace('\'', "''") + '\'';
}

template <class Number> QByteArray literal(Number number)
{
    return QByteArray::number(qint64(number));
}

template <class Value> constexpr const char *typeOf(const Value &)
{
    return std::is_same_v<Value, QString> ? "TEXT" : "INTEGER";
}

template <class Record, class... Values>
void addColumns(
    std::vector<QByteArray> &versions, const char *table, const std::tuple<Field<Record, Values>...> &fields)
{
    forEachField(fields, [&](const auto &field) {
        if (field.version == 0)
            return;
        versions.resize(std::max(versions.size(), size_t(field.version)));
        const auto initial = Record{}.*field.member;
        versions[size_t(field.version) - 1] += QByteArray("ALTER TABLE ") + table + " ADD COLUMN "
            + field.column + ' ' + typeOf(initial) + " NOT NULL DEFAULT " + literal(initial) + ';';
    });
}

std::vector<QByteArray> migrationTexts()
{
    std::vector<QByteArray> versions(std::begin(Tables), std::end(Tables));
    addColumns(versions, "record", StoredRecordFields);
    addColumns(versions, "roaming", RoamingItemFields);
    addColumns(versions, "roaming", RoamingPartFields);
    return versions;
}

} // namespace

sqlite::SchemaState prepareSchema(sqlite::Database &database)
{
    static const std::vector<QByteArray> texts = migrationTexts();
    std::vector<const char *> migrations;
    for (const QByteArray &text : texts)
        migrations.push_back(text.constData());
    const qint64 version = database.number("PRAGMA user_version");
    if (database.failure() != sqlite::Failure::None)
        return sqlite::SchemaState::Failed;
    if (version > qint64(migrations.size()))
        return sqlite::SchemaState::Newer;
    database.useWriteAheadLog();
    database.exec("PRAGMA synchronous=NORMAL");
    database.exec("PRAGMA journal_size_limit=4194304");
    return sqlite::migrateFile(database, migrations);
}

} // namespace zel::recent
