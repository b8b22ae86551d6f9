#include "service/methods/roaming/roamingmessages.h"

#include "base/clock.h"
#include "service/methods/messages/messagerecords.h"

// Ids of our messages begin with the record's. Messages of clients know the cloud file only.
#define ZEL_OF_RECORD "((fileId = ?1 AND fileId != '') OR (messageId > ?2 || '.' AND messageId < ?2 || '/'))"
#define ZEL_MARKS " RETURNING messageId, fileId, topic, read, trayRead, recentRead"

namespace zel::service {

namespace {

constexpr char ReadAll[] =
    "UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1, recentRead = 1"
    " WHERE topic = 'zel.roaming' AND (read = 0 OR trayRead = 0 OR recentRead = 0)" ZEL_MARKS;
constexpr char ReadOfRecord[] =
    "UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1, recentRead = 1"
    " WHERE topic = 'zel.roaming' AND (read = 0 OR trayRead = 0 OR recentRead = 0)"
    " AND " ZEL_OF_RECORD ZEL_MARKS;
// The tray has shown it; only the lists show it as unread again.
constexpr char UnreadOfRecord[] =
    "UPDATE metadata_zelbox_filemessage SET read = 0, recentRead = 0 WHERE messageId ="
    " (SELECT messageId FROM metadata_zelbox_filemessage WHERE topic = 'zel.roaming' AND " ZEL_OF_RECORD
    " ORDER BY time DESC LIMIT 1) AND (read = 1 OR recentRead = 1)" ZEL_MARKS;
constexpr char Trim[] = "DELETE FROM metadata_zelbox_filemessage WHERE messageId IN"
                        " (SELECT messageId FROM metadata_zelbox_filemessage WHERE topic = 'zel.roaming'"
                        " ORDER BY time DESC LIMIT -1 OFFSET ?1)";

void readRows(sqlite::Statement &statement, QVector<QStringList> &rows)
{
    while (statement.step()) {
        QStringList row;
        for (int column = 0; column < statement.columnCount(); ++column)
            row.append(statement.text(column));
        rows.append(row);
    }
}

vela::NewMessageItem messageOf(const vela::RecentFileItem &item)
{
    vela::NewMessageItem message;
    message.category = "document";
    message.topic = "zel.roaming";
    message.type = markOf(item) == RoamingMark::New ? "roaming_create" : "roaming_update";
    message.fileId = item.fileId;
    message.fileName = item.name;
    message.groupId = item.groudId;
    message.operatorId = item.lastUserId.empty() ? item.userId : item.lastUserId;
    message.deviceId = item.curDeviceId;
    message.deviceName = item.curDeviceName;
    message.fileVersion = item.fver;
    message.msgContent.title = item.name;
    message.extraParam["roamingId"] = item.roamingId;
    message.extraParam["operation"] = item.operation;
    return message;
}

} // namespace

void RoamingMessages::follow(const RoamingChange &done)
{
    m_news = {};
    if (done.allSeen)
        readAll();
    for (const RoamingKey &record : done.seen)
        change(ReadOfRecord, record);
    for (const RoamingKey &record : done.unseen)
        change(UnreadOfRecord, record);
    const qint64 time = zel::now().toMSecsSinceEpoch();
    for (const vela::RecentFileItem &item : done.arrived)
        store(item, time, m_news.stored.size());
    if (!done.arrived.empty())
        trim();
}

void RoamingMessages::store(const vela::RecentFileItem &item, qint64 time, int number)
{
    vela::NewMessageItem message = messageOf(item);
    message.messageId = item.roamingId + '.' + item.opv + '.' + std::to_string(number);
    message.time = time;
    m_news.stored.append(toMessage(message, {}));
    MessageTable(m_database).insertWithin(m_news.stored.last());
}

void RoamingMessages::change(const char *sql, const RoamingKey &record)
{
    sqlite::Statement statement(m_database, sql);
    readRows(statement.bind(1, record.fileId).bind(2, record.roamingId), m_news.changed);
}

void RoamingMessages::readAll()
{
    sqlite::Statement statement(m_database, ReadAll);
    readRows(statement, m_news.changed);
}

void RoamingMessages::trim()
{
    sqlite::Statement(m_database, Trim).bind(1, qint64(m_mostKept)).run();
}

} // namespace zel::service
