#include "service/tables/tableresult.h"

#include "base/logging.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace zel::service {
namespace {

constexpr int MarkLength = 4;         ///< between two fields
constexpr int LongestRow = 256 << 10; ///< one that is longer would hide all the others

QStringList readRow(const sqlite::Statement &statement, int columns)
{
    QStringList row;
    row.reserve(columns);
    for (int column = 0; column < columns; ++column)
        row.append(statement.text(column));
    return row;
}

int lengthOf(const QStringList &row)
{
    int length = 0;
    for (const QString &field : row)
        length += field.size() + MarkLength;
    return length;
}

} // namespace

QString asJson(const QStringList &list)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(list)).toJson(QJsonDocument::Compact));
}

TableResult readRows(sqlite::Database &database, sqlite::Statement &statement)
{
    TableResult result;
    result.hasRows = true;
    int left = MaxReplyLength;
    while (statement.step()) {
        QStringList row = readRow(statement, statement.columnCount());
        const int length = lengthOf(row);
        if (length > LongestRow) {
            qCWarning(lcService, "a row of %d characters was left out", length);
            continue;
        }
        left -= length;
        if (left < 0) {
            qCWarning(lcService, "a reply was cut after %d rows", int(result.rows.size()));
            break;
        }
        result.rows.append(std::move(row));
    }
    result.failure = settle(database);
    if (!result.ok())
        result.rows.clear();
    return result;
}

TableResult change(sqlite::Database &database, sqlite::Statement &statement)
{
    TableResult result;
    statement.run();
    result.failure = settle(database);
    if (result.ok())
        result.changed = database.changedRows();
    return result;
}

sqlite::Failure settle(sqlite::Database &database)
{
    const sqlite::Failure failure = database.failure();
    if (failure != sqlite::Failure::None)
        qCWarning(lcService, "a table could not be used: %s", qUtf8Printable(database.failureText()));
    database.clearFailure();
    return failure;
}

} // namespace zel::service
