#include "recentdatabase.h"

#include <QSet>

namespace zel::recent {
namespace {

constexpr const char *SelectRecords =
    "SELECT id,path,mime_type,opened_at,removed_time,presence,missing_since,size,pin_time FROM record "
    "ORDER BY time DESC";
constexpr const char *SelectRoaming =
    "SELECT "
    "record_id,user,roaming_id,file_id,name,device_name,used_path,cache_path,found_path,time,size,unread,"
    "forgotten_time,read_untold FROM roaming";
constexpr const char *SelectAccesses = "SELECT record_id,source_id,time FROM access ORDER BY record_id";
constexpr const char *SelectSources = "SELECT name,id,mtime_ns,size,inode FROM source";
constexpr const char *InsertRecord =
    "INSERT INTO record(path,mime_type,time,opened_at,removed_time,presence,missing_since,size,pin_time) "
    "VALUES(?1,?2,?3,?4,?5,?6,?7,?8,?9)";
constexpr const char *UpdateRecord =
    "UPDATE record SET path=?1,mime_type=?2,time=?3,opened_at=?4,removed_time=?5,"
    "presence=?6,missing_since=?7,size=?8,pin_time=?9 WHERE id=?10";
constexpr const char *InsertRoaming =
    "INSERT INTO "
    "roaming(record_id,user,roaming_id,file_id,name,device_name,used_path,cache_path,found_path,time,"
    "size,unread,forgotten_time,read_untold) VALUES(?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14)";
constexpr const char *DeleteRoaming = "DELETE FROM roaming WHERE record_id=?1";
constexpr const char *DeleteRecord = "DELETE FROM record WHERE id=?1";
constexpr const char *InsertAccess = "INSERT INTO access(record_id,source_id,time) VALUES(?1,?2,?3)";
constexpr const char *DeleteAccesses = "DELETE FROM access WHERE record_id=?1";
constexpr const char *InsertSource = "INSERT INTO source(name,id,mtime_ns,size,inode) VALUES(?1,?2,?3,?4,?5)";

RecentFileInfo::Presence toPresence(qint64 value)
{
    using Presence = RecentFileInfo::Presence;
    return value == 1 ? Presence::Present : value == 2 ? Presence::Missing : Presence::Unknown;
}

qint64 toNumber(RecentFileInfo::Presence presence)
{
    using Presence = RecentFileInfo::Presence;
    return presence == Presence::Present ? 1 : presence == Presence::Missing ? 2 : 0;
}

void bindRecord(sqlite::Statement &statement, const StoredRecord &record)
{
    statement.bind(1, record.id)
        .bind(2, record.mimeType)
        .bind(3, record.lastAccess())
        .bind(4, record.openedAt)
        .bind(5, record.removedTime)
        .bind(6, toNumber(record.presence))
        .bind(7, record.missingSince)
        .bind(8, record.size)
        .bind(9, record.pinTime);
}

void insertRoaming(sqlite::Statement &statement, qint64 rowId, const RoamingPart &part)
{
    const RoamingItem &item = part.item;
    statement.bind(1, rowId)
        .bind(2, item.user)
        .bind(3, item.roamingId)
        .bind(4, item.fileId)
        .bind(5, item.name)
        .bind(6, item.deviceName)
        .bind(7, item.usedPath)
        .bind(8, item.cachePath)
        .bind(9, part.foundPath)
        .bind(10, item.time)
        .bind(11, item.size)
        .bind(12, qint64(item.unread))
        .bind(13, part.forgottenTime)
        .bind(14, qint64(part.isReadUntold))
        .run();
}

RoamingPart readRoaming(const sqlite::Statement &row)
{
    RoamingPart part;
    part.item.user = row.text(1);
    part.item.roamingId = row.text(2);
    part.item.fileId = row.text(3);
    part.item.name = row.text(4);
    part.item.deviceName = row.text(5);
    part.item.usedPath = row.text(6);
    part.item.cachePath = row.text(7);
    part.foundPath = row.text(8);
    part.item.time = row.number(9);
    part.item.size = row.number(10);
    part.item.unread = int(row.number(11));
    part.forgottenTime = row.number(12);
    part.isReadUntold = row.number(13) != 0;
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
    sqlite::Statement select(m_database, SelectRecords);
    while (select.step()) {
        StoredRecord record;
        record.rowId = select.number(0);
        record.id = select.text(1);
        record.mimeType = *mimeTypes.insert(select.text(2));
        record.openedAt = select.number(3);
        record.removedTime = select.number(4);
        record.presence = toPresence(select.number(5));
        record.missingSince = select.number(6);
        record.size = select.number(7);
        record.pinTime = select.number(8);
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
    sqlite::Statement select(m_database, SelectRoaming);
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
    sqlite::Statement insert(m_database, InsertRecord);
    sqlite::Statement update(m_database, UpdateRecord);
    sqlite::Statement clear(m_database, DeleteAccesses);
    sqlite::Statement access(m_database, InsertAccess);
    sqlite::Statement clearRoaming(m_database, DeleteRoaming);
    sqlite::Statement roaming(m_database, InsertRoaming);
    for (StoredRecord &record : records) {
        if (record.rowId == 0) {
            bindRecord(insert, record);
            insert.run();
            record.rowId = m_database.lastRowId();
        } else {
            bindRecord(update, record);
            update.bind(10, record.rowId).run();
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
