#include "service/tables/messagetable.h"

#include "service/tables/messagecolumns.h"

#include <QUuid>

#define ZEL_IDS "messageId IN (SELECT value FROM json_each(?))"

namespace zel::service {
namespace {

constexpr char Replacing[] = "INSERT OR REPLACE INTO metadata_zelbox_filemessage (" ZEL_MESSAGE_COLUMNS
                             ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?) RETURNING 1";

void bind(sqlite::Statement &insert, const Message &message)
{
    const QString id =
        message.messageId.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : message.messageId;
    insert.bind(1, message.fileId).bind(2, message.operatorId).bind(3, message.time);
    insert.bind(4, qint64(message.read))
        .bind(5, qint64(message.trayRead))
        .bind(6, qint64(message.recentRead));
    int column = 7;
    for (const QString &text :
        {message.topic, message.type, id, message.title, message.content, message.operatorName,
            message.fileName, message.groupId, message.category, message.linkId, message.extra})
        insert.bind(column++, text);
}

} // namespace

TableResult MessageTable::insert(const QVector<Message> &messages)
{
    return write(messages,
        "INSERT INTO metadata_zelbox_filemessage (" ZEL_MESSAGE_COLUMNS
        ") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?) ON CONFLICT (messageId) DO NOTHING RETURNING 1");
}

TableResult MessageTable::replace(const QVector<Message> &messages)
{
    return write(messages, Replacing);
}

void MessageTable::insertWithin(const Message &message)
{
    sqlite::Statement insert(m_database, Replacing);
    bind(insert, message);
    insert.run();
}

TableResult MessageTable::write(const QVector<Message> &messages, const char *sql)
{
    TableResult result;
    sqlite::Transaction transaction(m_database);
    sqlite::Statement insert(m_database, sql);
    for (const Message &message : messages) {
        bind(insert, message);
        result.changed += insert.step() ? 1 : 0;
        insert.run();
    }
    const bool done = transaction.commit();
    result.failure = settle(m_database);
    if (!done)
        result.changed = 0;
    return result;
}

TableResult MessageTable::list(const MessageQuery &query)
{
    sqlite::Statement statement(m_database,
        "SELECT " ZEL_MESSAGE_COLUMNS " FROM metadata_zelbox_filemessage"
        " WHERE (?1 = '' OR category = ?1) AND (?2 = 0 OR read = 0)"
        " ORDER BY time DESC, messageId LIMIT ?3 OFFSET ?4");
    // Negative ones would mean "no limit".
    statement.bind(1, query.category).bind(2, qint64(query.unreadOnly));
    statement.bind(3, qint64(qMax(query.limit, 0))).bind(4, qint64(qMax(query.offset, 0)));
    return readRows(m_database, statement);
}

TableResult MessageTable::find(const QStringList &messageIds)
{
    sqlite::Statement statement(m_database,
        "SELECT " ZEL_MESSAGE_COLUMNS " FROM metadata_zelbox_filemessage WHERE " ZEL_IDS
        " ORDER BY time DESC");
    statement.bind(1, asJson(messageIds));
    return readRows(m_database, statement);
}

TableResult MessageTable::remove(const QStringList &messageIds)
{
    sqlite::Statement statement(m_database, "DELETE FROM metadata_zelbox_filemessage WHERE " ZEL_IDS);
    statement.bind(1, asJson(messageIds));
    return change(m_database, statement);
}

TableResult MessageTable::markRead(const QStringList &messageIds)
{
    sqlite::Statement statement(m_database,
        "UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1 WHERE (read = 0 OR trayRead = 0) "
        "AND " ZEL_IDS);
    statement.bind(1, asJson(messageIds));
    return change(m_database, statement);
}

TableResult MessageTable::clearTrayUnread(const QString &type)
{
    sqlite::Statement statement(m_database,
        "UPDATE metadata_zelbox_filemessage SET trayRead = 1 WHERE trayRead = 0 AND (type = ?1 OR topic = "
        "?1)");
    statement.bind(1, type);
    return change(m_database, statement);
}

UnreadCounts MessageTable::unreadCounts()
{
    UnreadCounts counts;
    sqlite::Statement statement(m_database,
        "SELECT count(*) FILTER (WHERE read = 0 AND " ZEL_FAMILY "),"
        " count(*) FILTER (WHERE trayRead = 0),"
        " count(DISTINCT fileId) FILTER (WHERE recentRead = 0 AND topic = 'zel.roaming' AND fileId != '')"
        " FROM metadata_zelbox_filemessage WHERE read = 0 OR trayRead = 0 OR recentRead = 0");
    if (statement.step())
        counts = {int(statement.number(0)), int(statement.number(1)), int(statement.number(2))};
    settle(m_database);
    return counts;
}

Message MessageTable::fromRow(const QStringList &row)
{
    Message message;
    const auto mark = [&row](int field) { return row.value(field).toInt() != 0; };
    message.time = row.value(2).toLongLong();
    message.read = mark(3);
    message.trayRead = mark(4);
    message.recentRead = mark(5);
    message.fileId = row.value(0);
    message.operatorId = row.value(1);
    int field = 6;
    for (QString *text : {&message.topic, &message.type, &message.messageId, &message.title, &message.content,
             &message.operatorName, &message.fileName, &message.groupId, &message.category, &message.linkId,
             &message.extra})
        *text = row.value(field++);
    return message;
}

} // namespace zel::service
