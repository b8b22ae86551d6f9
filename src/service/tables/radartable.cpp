#include "service/tables/radartable.h"

#include "service/tables/tableguard.h"

namespace zel::service {
namespace {

using Access = TableGuard::Access;
constexpr char Table[] = "metadata_zelbox_fileradar";

/// Runs a deletion that returns the paths.
TableResult readRemoved(sqlite::Database &database, sqlite::Statement &statement)
{
    TableResult result = readRows(database, statement);
    result.hasRows = false;
    result.changed = result.rows.size();
    return result;
}

class Runner
{
public:
    explicit Runner(sqlite::Database &database) : m_database(database) { }

    TableResult operator()(const RadarList &) const
    {
        const TableGuard guard(m_database, Table, Access::Read);
        sqlite::Statement statement(m_database,
            "SELECT ImType, SubType, FilePath, FileName, Time, State FROM metadata_zelbox_fileradar"
            " ORDER BY Time DESC");
        return readRows(m_database, statement);
    }
    TableResult operator()(const RadarForget &wanted) const
    {
        const TableGuard guard(m_database, Table, Access::Delete);
        sqlite::Statement statement(
            m_database, "DELETE FROM metadata_zelbox_fileradar WHERE FilePath = ? RETURNING FilePath");
        return readRemoved(m_database, statement.bind(1, wanted.path));
    }
    TableResult operator()(const RadarClear &wanted) const
    {
        const TableGuard guard(m_database, Table, Access::Delete);
        sqlite::Statement statement(
            m_database, "DELETE FROM metadata_zelbox_fileradar WHERE ImType = ? RETURNING FilePath");
        return readRemoved(m_database, statement.bind(1, qint64(wanted.source)));
    }

private:
    sqlite::Database &m_database;
};

void bind(sqlite::Statement &statement, const RadarFile &file)
{
    statement.bind(1, file.path).bind(2, qint64(file.source)).bind(3, qint64(file.subType));
    statement.bind(4, file.name).bind(5, file.time).bind(6, qint64(file.state));
}

} // namespace

TableResult RadarTable::run(const RadarStatement &statement)
{
    return std::visit(Runner(m_database), statement);
}

RadarChange RadarTable::store(const QVector<RadarFile> &files)
{
    RadarChange result;
    sqlite::Transaction transaction(m_database);
    sqlite::Statement insert(m_database,
        "INSERT INTO metadata_zelbox_fileradar (FilePath, ImType, SubType, FileName, Time, State)"
        " VALUES (?,?,?,?,?,?) ON CONFLICT (FilePath) DO NOTHING");
    sqlite::Statement update(m_database,
        "UPDATE metadata_zelbox_fileradar SET ImType = ?2, SubType = ?3, FileName = ?4, Time = ?5, State = ?6"
        " WHERE FilePath = ?1 AND (ImType, SubType, FileName, Time, State) IS NOT (?2, ?3, ?4, ?5, ?6)");
    const auto takes = [this](sqlite::Statement &statement, const RadarFile &file) {
        bind(statement, file);
        statement.run();
        return m_database.changedRows() > 0;
    };
    for (const RadarFile &file : files) {
        if (takes(insert, file))
            result.added.append(file.path);
        else if (takes(update, file))
            result.modified.append(file.path);
    }
    if (!transaction.commit())
        result = {};
    result.failure = settle(m_database);
    return result;
}

TableResult RadarTable::remove(const QStringList &paths)
{
    sqlite::Statement statement(m_database,
        "DELETE FROM metadata_zelbox_fileradar WHERE FilePath IN (SELECT value FROM json_each(?)) RETURNING "
        "FilePath");
    return readRemoved(m_database, statement.bind(1, asJson(paths)));
}

RadarFile RadarTable::fromRow(const QStringList &row)
{
    const auto number = [&row](int field) { return row.value(field).toInt(); };
    return {number(0), number(1), row.value(2), row.value(3), row.value(4).toLongLong(), number(5)};
}

} // namespace zel::service
