#include "service/tables/messagecolumns.h"
#include "service/tables/messagetable.h"
#include "service/tables/tableguard.h"

namespace zel::service {
namespace {

using Access = TableGuard::Access;

// Our own SQL, with the column's name, which no statement can bind, in place of "@".
QByteArray withColumn(const char *sql, IdColumn column)
{
    return QByteArray(sql).replace('@', column == IdColumn::FileId ? "fileId" : "operatorId");
}

class Runner
{
public:
    explicit Runner(sqlite::Database &database) : m_database(database) { }

    TableResult operator()(const RoamingList &wanted) const
    {
        // With max() in the list, SQLite takes the other columns from the row that holds the maximum.
        return read("SELECT fileId, count(*), max(time), " ZEL_MESSAGE_COLUMNS
                    " FROM metadata_zelbox_filemessage"
                    " WHERE read = 0 AND type = ? GROUP BY fileId ORDER BY 3 DESC",
            wanted.kind == RoamingKind::Update ? QStringLiteral("roaming_update")
                                               : QStringLiteral("roaming_create"));
    }
    TableResult operator()(const IdList &wanted) const
    {
        return read(withColumn(
            "SELECT @ FROM metadata_zelbox_filemessage WHERE " ZEL_FAMILY " GROUP BY @", wanted.column));
    }
    TableResult operator()(const IdMessages &wanted) const
    {
        return read(withColumn("SELECT " ZEL_MESSAGE_COLUMNS " FROM metadata_zelbox_filemessage"
                               " WHERE @ = ? AND " ZEL_FAMILY " ORDER BY time DESC LIMIT ?",
                        wanted.column),
            wanted.id, qint64(wanted.limit));
    }
    TableResult operator()(const IdUnread &wanted) const
    {
        // The wall lets no table function through, so the ids are bound one by one.
        const QByteArray places = QByteArray("?,").repeated(wanted.ids.size()).chopped(1);
        const QByteArray ids =
            withColumn("@ IN (", wanted.column) + places + ") AND " ZEL_FAMILY " GROUP BY ";
        return read(withColumn("SELECT @, count(*) FROM metadata_zelbox_filemessage WHERE read = 0 AND ",
                        wanted.group)
                + ids + withColumn("@", wanted.group),
            wanted.ids);
    }
    TableResult operator()(const ClearId &wanted) const
    {
        return mark(withColumn("UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1"
                               " WHERE (read = 0 OR trayRead = 0) AND @ = ? AND " ZEL_FAMILY,
                        wanted.column),
            wanted.id);
    }
    TableResult operator()(const MarkReadUpTo &wanted) const
    {
        return mark(wanted.trayToo ? "UPDATE metadata_zelbox_filemessage SET read = 1, trayRead = 1"
                                     " WHERE (read = 0 OR trayRead = 0) AND fileId = ? AND time <= ?"
                                   : "UPDATE metadata_zelbox_filemessage SET read = 1"
                                     " WHERE read = 0 AND fileId = ? AND time <= ?",
            wanted.fileId, wanted.time);
    }
    TableResult operator()(const RoamingTabUnread &) const
    {
        return read("SELECT count(DISTINCT fileId) FROM metadata_zelbox_filemessage"
                    " WHERE recentRead = 0 AND topic = 'zel.roaming' AND fileId != ''");
    }

private:
    template <class... Values> TableResult read(const QByteArray &sql, const Values &...values) const
    {
        return run(readRows, Access::Read, sql, values...);
    }
    template <class... Values> TableResult mark(const QByteArray &sql, const Values &...values) const
    {
        return run(change, Access::MarkRead, sql, values...);
    }
    template <class How, class... Values>
    TableResult run(How how, Access access, const QByteArray &sql, const Values &...values) const
    {
        const TableGuard guard(m_database, "metadata_zelbox_filemessage", access);
        sqlite::Statement statement(m_database, sql.constData());
        [[maybe_unused]] int index = 1;
        (bind(statement, index, values), ...);
        return how(m_database, statement);
    }
    template <class Value> static void bind(sqlite::Statement &statement, int &index, const Value &value)
    {
        statement.bind(index++, value);
    }
    static void bind(sqlite::Statement &statement, int &index, const QStringList &values)
    {
        for (const QString &value : values)
            bind(statement, index, value);
    }

    sqlite::Database &m_database;
};

} // namespace

TableResult MessageTable::run(const MessageStatement &statement)
{
    return std::visit(Runner(m_database), statement);
}

} // namespace zel::service
