#include "service/methods/messages/messagequeries.h"

#include "service/tables/messagecolumns.h"

namespace zel::service {
namespace {

// The parameters of a filter come first; "@" is the mark of its place.
constexpr char Matches[] = " WHERE (?1 = '' OR category = ?1)"
                           " AND (?2 = '[]' OR topic IN (SELECT value FROM json_each(?2)))"
                           " AND (?3 = '[]' OR type IN (SELECT value FROM json_each(?3)))"
                           " AND (?4 = '[]' OR messageId IN (SELECT value FROM json_each(?4)))"
                           " AND (?5 = '' OR fileId = ?5) AND (?6 = '' OR operatorId = ?6)"
                           " AND (?7 = '' OR groupId = ?7) AND (?8 = 0 OR @ = 0)"
                           " AND time >= ?9 AND (?10 = 0 OR time <= ?10)";
constexpr char Returning[] = " RETURNING messageId, fileId, topic, read, trayRead, recentRead";
constexpr int FirstFree = 11;
constexpr char Order[] = " ORDER BY time DESC, messageId";

void bindFilter(sqlite::Statement &statement, const MessageFilter &filter)
{
    statement.bind(1, filter.category).bind(2, asJson(filter.topics)).bind(3, asJson(filter.types));
    statement.bind(4, asJson(filter.messageIds)).bind(5, filter.fileId).bind(6, filter.operatorId);
    statement.bind(7, filter.groupId).bind(8, qint64(filter.unreadOnly)).bind(9, filter.since);
    statement.bind(10, filter.until);
}

const char *markOf(MessagePlace place)
{
    switch (place) {
    case MessagePlace::Pages:
        return "read";
    case MessagePlace::Tray:
        return "trayRead";
    case MessagePlace::Recent:
        return "recentRead";
    }
    return "read";
}

// Joins the parts and names the filter's mark; all parts are texts of ours.
QByteArray sqlOf(const MessageFilter &filter, std::initializer_list<const char *> parts)
{
    QByteArray sql;
    for (const char *part : parts)
        sql += part;
    return sql.replace('@', markOf(filter.place));
}

} // namespace

template <class BindMore>
TableResult MessageQueries::read(const QByteArray &sql, const MessageFilter &filter, BindMore bindMore)
{
    sqlite::Statement statement(m_database, sql.constData());
    bindFilter(statement, filter);
    bindMore(statement);
    return readRows(m_database, statement);
}

TableResult MessageQueries::list(const MessageFilter &filter, int offset, int count)
{
    const QByteArray sql = sqlOf(filter,
        {"SELECT " ZEL_MESSAGE_COLUMNS " FROM metadata_zelbox_filemessage", Matches, Order,
            " LIMIT ?11 OFFSET ?12"});
    return read(sql, filter, [&](sqlite::Statement &statement) {
        statement.bind(FirstFree, qint64(count)).bind(FirstFree + 1, qint64(offset));
    });
}

TableResult MessageQueries::listFrom(
    const MessageFilter &filter, const MessageCursor &after, int count, bool latestPerFile)
{
    constexpr char After[] = " AND (?11 = '' OR time < ?12 OR (time = ?12 AND messageId > ?11))";
    constexpr char PerFile[] = " AND messageId IN (SELECT messageId FROM"
                               " (SELECT messageId, max(time) FROM metadata_zelbox_filemessage";
    constexpr char PerFileEnd[] = " GROUP BY CASE fileId WHEN '' THEN messageId ELSE fileId END))";
    const bool all = !latestPerFile;
    const QByteArray sql = sqlOf(filter,
        {"SELECT " ZEL_MESSAGE_COLUMNS " FROM metadata_zelbox_filemessage", Matches, all ? "" : PerFile,
            all ? "" : Matches, all ? "" : PerFileEnd, After, Order, " LIMIT ?13"});
    return read(sql, filter, [&](sqlite::Statement &statement) {
        statement.bind(FirstFree, after.messageId).bind(FirstFree + 1, after.time);
        statement.bind(FirstFree + 2, qint64(count));
    });
}

TableResult MessageQueries::counts(const MessageFilter &filter)
{
    const QByteArray sql = sqlOf(
        filter, {"SELECT count(*), count(*) FILTER (WHERE @ = 0) FROM metadata_zelbox_filemessage", Matches});
    return read(sql, filter, [](sqlite::Statement &) {});
}

TableResult MessageQueries::unreadBy(const MessageFilter &filter, const char *column)
{
    // With max() in the list, SQLite takes the id from the row that holds the maximum.
    const QByteArray sql = sqlOf(filter,
        {"SELECT ", column, ", count(*), max(time), messageId FROM metadata_zelbox_filemessage", Matches,
            " AND @ = 0 GROUP BY ", column});
    return read(sql, filter, [](sqlite::Statement &) {});
}

TableResult MessageQueries::markRead(const MessageFilter &filter, const MessageMarks &marks)
{
    const QByteArray sql = sqlOf(filter,
        {"UPDATE metadata_zelbox_filemessage SET read = max(read, ?11), trayRead = max(trayRead, ?12),"
         " recentRead = max(recentRead, ?13)",
            Matches, " AND (read < ?11 OR trayRead < ?12 OR recentRead < ?13)", Returning});
    return read(sql, filter, [&](sqlite::Statement &statement) {
        statement.bind(FirstFree, qint64(marks.pages)).bind(FirstFree + 1, qint64(marks.tray));
        statement.bind(FirstFree + 2, qint64(marks.recent));
    });
}

TableResult MessageQueries::remove(const MessageFilter &filter)
{
    const QByteArray sql = sqlOf(filter, {"DELETE FROM metadata_zelbox_filemessage", Matches, Returning});
    return read(sql, filter, [](sqlite::Statement &) {});
}

} // namespace zel::service
