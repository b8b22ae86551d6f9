#include "base/sqlite/migrations.h"

namespace zel::sqlite {
namespace {

// Under the write lock throughout, so that two processes that start at once do not both bring the tables up.
template <class Read, class Write>
SchemaState migrate(Database &database, Migrations migrations, const Read &read, const Write &write)
{
    Transaction transaction(database);
    const qint64 known = qint64(migrations.size());
    const qint64 found = read();
    if (database.failure() == Failure::None && found > known)
        return SchemaState::Newer;
    for (qint64 version = qMax(found, qint64(0)); version < known; ++version)
        database.exec(migrations[size_t(version)]);
    if (found < known)
        write(known);
    return transaction.commit() ? SchemaState::Ready : SchemaState::Failed;
}

} // namespace

SchemaState migrateFile(Database &database, Migrations migrations)
{
    const auto read = [&] { return database.number("PRAGMA user_version"); };
    const bool isPresent = read() == qint64(migrations.size());
    if (isPresent || database.failure() != Failure::None)
        return isPresent ? SchemaState::Ready : SchemaState::Failed;
    return migrate(database, migrations, read, [&](qint64 version) {
        database.exec(qPrintable(QStringLiteral("PRAGMA user_version=%1").arg(version)));
    });
}

SchemaState migrateArea(Database &database, const QString &area, Migrations migrations)
{
    const auto read = [&]() -> qint64 {
        database.exec("CREATE TABLE IF NOT EXISTS schema_version (area TEXT NOT NULL PRIMARY KEY, version "
                      "INTEGER NOT NULL)");
        Statement statement(database, "SELECT max(version) FROM schema_version WHERE area = ?");
        return statement.bind(1, area).step() ? statement.number(0) : 0;
    };
    return migrate(database, migrations, read, [&](qint64 version) {
        Statement insert(database, "INSERT OR REPLACE INTO schema_version VALUES (?, ?)");
        insert.bind(1, area).bind(2, version).run();
    });
}

} // namespace zel::sqlite
