#include "recentdatabase.h"

#include <QByteArrayList>
#include <QSet>

namespace zel::recent {
namespace {

constexpr const char *SelectAccesses = "SELECT record_id,source_id,time FROM access ORDER BY record_id";
constexpr const char *SelectSources = "SELECT name,id,mtime_ns,size,inode FROM source";
constexpr const char *DeleteRoaming = "DELETE FROM roaming WHERE record_id=?1";
constexpr const char *DeleteRecord = "DELETE FROM record WHERE id=?1";
constexpr const char *InsertAccess = "INSERT INTO access(record_id,source_id,time) VALUES(?1,?2,?3)";
constexpr const char *DeleteAccesses = "DELETE FROM access WHERE record_id=?1";
constexpr const char *InsertSource = "INSERT INTO source(name,id,mtime_ns,size,inode) VALUES(?1,?2,?3,?4,?5)";

template <class... Fields> QByteArray columnsOf(const Fields &...tables)
{
    QByteArrayList names;
    (forEachField(tables, [&](const auto &field) { names.append(field.column); }), ...);
    return names.join(',');
}

// "?1,?2,?3" for three columns.
QByteArray placesFor(const QByteArray &columns)
{
    QByteArrayList places;
    for (int i = 1; i <= columns.count(',') + 1; ++i)
        places.append('?' + QByteArray::number(i));
    return places.join(',');
}

/// What follows from the tables of fields.
struct FieldStatements
{
    const QByteArray record = columnsOf(StoredRecordFields);
    const QByteArray written = "time," + record; ///< the time is derived, to be sorted by
    const QByteArray selectRecords = "SELECT id," + record + " FROM record ORDER BY time DESC";
    const QByteArray insertRecord = "INSERT INTO record(" + written + ") VALUES(" + placesFor(written) + ')';
    const QByteArray updateRecord = "UPDATE record SET(" + written + ")=(" + placesFor(written)
        + ") WHERE id=?" + QByteArray::number(written.count(',') + 2);

    const QByteArray roaming = "record_id," + columnsOf(RoamingItemFields, RoamingPartFields);
    const QByteArray selectRoaming = "SELECT " + roaming + " FROM roaming";
    const QByteArray insertRoaming =
        "INSERT INTO roaming(" + roaming + ") VALUES(" + placesFor(roaming) + ')';
};

const FieldStatements &statements()
{
    static const FieldStatements made;
    return made;
}

void bindValue(sqlite::Statement &statement, int place, const QString &value)
{
    statement.bind(place, value);
}

template <class Number> void bindValue(sqlite::Statement &statement, int place, Number value)
{
    statement.bind(place, qint64(value));
}

void readValue(const sqlite::Statement &row, int column, QString &value)
{
    value = row.text(column);
}

template <class Number> void readValue(const sqlite::Statement &row, int column, Number &value)
{
    value = Number(row.number(column));
}

void readValue(const sqlite::Statement &row, int column, RecentFileInfo::Presence &value)
{
    using Presence = RecentFileInfo::Presence;
    static_assert(int(Presence::Present) == 1 && int(Presence::Missing) == 2); // so they are stored
    const qint64 number = row.number(column);
    const bool isKnown = number == qint64(Presence::Present) || number == qint64(Presence::Missing);
    value = isKnown ? Presence(number) : Presence::Unknown;
}

/// Binds the members to the places from this one on; the next place.
template <class Fields, class Record>
int bindFields(sqlite::Statement &statement, int place, const Fields &fields, const Record &record)
{
    forEachField(fields, [&](const auto &field) { bindValue(statement, place++, record.*field.member); });
    return place;
}

/// Reads the members from the columns from this one on; the next column.
template <class Fields, class Record>
int readFields(const sqlite::Statement &row, int column, const Fields &fields, Record &record)
{
    forEachField(fields, [&](const auto &field) { readValue(row, column++, record.*field.member); });
    return column;
}

int bindRecord(sqlite::Statement &statement, const StoredRecord &record)
{
    statement.bind(1, record.lastAccess());
    return bindFields(statement, 2, StoredRecordFields, record);
}

void insertRoaming(sqlite::Statement &statement, qint64 rowId, const RoamingPart &part)
{
    statement.bind(1, rowId);
    bindFields(statement, bindFields(statement, 2, RoamingItemFields, part.item), RoamingPartFields, part);
    statement.run();
}

RoamingPart readRoaming(const sqlite::Statement &row)
{
    RoamingPart part;
    readFields(row, readFields(row, 1, RoamingItemFields, part.item), RoamingPartFields, part);
    return part;
}

QHash<qint64, int> placesByRow(const QVector<StoredRecord> &records)
{
    QHash<qint64, int> places;
    places.reserve(records.size());
    for (int i = 0; i < records.size(); ++i)
        places.insert(records.at(i).rowId, i);
    return places;
}

} // namespace

QVector<StoredRecord> RecentDatabase::load()
{
    QVector<StoredRecord> records = loadRecords();
    const QHash<qint64, int> places = placesByRow(records);
    loadAccesses(records, places);
    loadRoaming(records, places);
    return records;
}

QVector<StoredRecord> RecentDatabase::loadRecords()
{
    QVector<StoredRecord> records;
    QSet<QString> mimeTypes; // a few texts that all records share
    sqlite::Statement select(m_database, statements().selectRecords.constData());
    while (select.step()) {
        StoredRecord record;
        record.rowId = select.number(0);
        readFields(select, 1, StoredRecordFields, record);
        record.mimeType = *mimeTypes.insert(record.mimeType);
        records.append(std::move(record));
    }
    return records;
}

void RecentDatabase::loadAccesses(QVector<StoredRecord> &records, const QHash<qint64, int> &places)
{
    sqlite::Statement select(m_database, SelectAccesses);
    while (select.step()) {
        const int place = places.value(select.number(0), -1);
        if (place >= 0)
            records[place].setAccess(int(select.number(1)), select.number(2));
    }
}

void RecentDatabase::loadRoaming(QVector<StoredRecord> &records, const QHash<qint64, int> &places)
{
    sqlite::Statement select(m_database, statements().selectRoaming.constData());
    while (select.step()) {
        const int place = places.value(select.number(0), -1);
        if (place >= 0)
            records[place].roaming = readRoaming(select);
    }
}

SourceTable RecentDatabase::loadSources()
{
    SourceTable sources;
    sqlite::Statement select(m_database, SelectSources);
    while (select.step()) {
        const FileStamp stamp{select.number(2), select.number(3), select.number(4)};
        sources.insert(select.text(0), {int(select.number(1)), stamp});
    }
    return sources;
}

void RecentDatabase::write(QVector<StoredRecord> &records)
{
    sqlite::Statement insert(m_database, statements().insertRecord.constData());
    sqlite::Statement update(m_database, statements().updateRecord.constData());
    sqlite::Statement clear(m_database, DeleteAccesses);
    sqlite::Statement access(m_database, InsertAccess);
    sqlite::Statement clearRoaming(m_database, DeleteRoaming);
    sqlite::Statement roaming(m_database, statements().insertRoaming.constData());
    for (StoredRecord &record : records) {
        if (record.rowId == 0) {
            bindRecord(insert, record);
            insert.run();
            record.rowId = m_database.lastRowId();
        } else {
            const int key = bindRecord(update, record);
            update.bind(key, record.rowId).run();
            clear.bind(1, record.rowId).run();
            clearRoaming.bind(1, record.rowId).run();
        }
        for (const RecentAccess &entry : std::as_const(record.accesses))
            access.bind(1, record.rowId).bind(2, entry.source).bind(3, entry.time).run();
        if (record.roaming)
            insertRoaming(roaming, record.rowId, *record.roaming);
    }
}

void RecentDatabase::erase(const QVector<StoredRecord> &records)
{
    sqlite::Statement record(m_database, DeleteRecord);
    sqlite::Statement accesses(m_database, DeleteAccesses);
    sqlite::Statement roaming(m_database, DeleteRoaming);
    for (const StoredRecord &erased : records) {
        record.bind(1, erased.rowId).run();
        accesses.bind(1, erased.rowId).run();
        roaming.bind(1, erased.rowId).run();
    }
}

void RecentDatabase::writeSources(const SourceTable &sources)
{
    m_database.exec("DELETE FROM source");
    sqlite::Statement insert(m_database, InsertSource);
    for (auto it = sources.cbegin(); it != sources.cend(); ++it) {
        const FileStamp &stamp = it->stamp;
        insert.bind(1, it.key())
            .bind(2, it->id)
            .bind(3, stamp.mtimeNs)
            .bind(4, stamp.size)
            .bind(5, stamp.inode)
            .run();
    }
}

qint64 RecentDatabase::dataVersion()
{
    return m_database.number("PRAGMA data_version");
}

} // namespace zel::recent
