#pragma once

#include "base/sqlite/database.h"

#include <QStringList>
#include <QVector>

namespace zel::service {

/// What came of one operation on a table.
struct TableResult
{
    sqlite::Failure failure = sqlite::Failure::None; ///< logged already, and cleared from the connection
    bool hasRows = false; ///< it was a question: `rows` is its answer, also when it is empty
    QVector<QStringList> rows;
    qint64 changed = 0; ///< rows changed or deleted

    bool ok() const { return failure == sqlite::Failure::None; }
};

/// A reply holds no more than this; rows that do not fit are left out with a line in the log. In UTF-16
/// units.
inline constexpr int MaxReplyLength = 4 * 1024 * 1024;

/// SQLite has no lists as values: a list is bound as this text and read with json_each().
QString asJson(const QStringList &list);

/// Reads the rows of a bound statement to the end.
TableResult readRows(sqlite::Database &database, sqlite::Statement &statement);
/// Runs a bound statement that changes rows.
TableResult change(sqlite::Database &database, sqlite::Statement &statement);
/// The connection's failure, logged. Clears it: the next operation tries again.
sqlite::Failure settle(sqlite::Database &database);

} // namespace zel::service
