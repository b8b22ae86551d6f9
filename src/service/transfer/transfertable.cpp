#include "service/transfer/transfertable.h"

#include "base/clock.h"
#include "service/roaming/recordbytes.h"
#include "service/tables/tableresult.h"

#include <QUuid>

namespace zel::service {
namespace {

using sqlite::Statement;

constexpr const char *Migrations[] = {R"(
CREATE TABLE transfer_task (
    number INTEGER PRIMARY KEY AUTOINCREMENT, id TEXT NOT NULL UNIQUE, user TEXT NOT NULL,
    state INTEGER NOT NULL, priority INTEGER NOT NULL, changed INTEGER NOT NULL,
    folder TEXT NOT NULL, name TEXT NOT NULL, policy INTEGER NOT NULL, hidden INTEGER NOT NULL,
    excluded TEXT NOT NULL, made TEXT NOT NULL, resumed INTEGER NOT NULL, info BLOB NOT NULL);
CREATE INDEX transfer_waiting ON transfer_task (state, priority, number);
CREATE INDEX transfer_user ON transfer_task (user, number);
)"};

constexpr char Columns[] = "info, state, folder, name, policy, hidden, excluded, made, resumed";

TransferTask readTask(const Statement &row)
{
    TransferTask task;
    readRecord(row.bytes(0), task.info);
    task.info.transferState = int32_t(row.number(1));
    task.folder = row.text(2);
    task.name = row.text(3);
    task.policy = ConflictPolicy(row.number(4));
    task.includeHidden = row.number(5) != 0;
    task.excludedSuffixes = row.text(6).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    task.made = row.text(7);
    task.resumed = row.number(8) != 0;
    return task;
}

TransferTasks readAll(Statement &rows)
{
    TransferTasks tasks;
    while (rows.step())
        tasks.push_back(readTask(rows));
    return tasks;
}

QByteArray select(const char *rest)
{
    return QByteArray("SELECT ").append(Columns).append(" FROM transfer_task ").append(rest);
}

} // namespace

TransferTable::TransferTable(CloudDatabase &store, int keep) : m_store(store), m_keep(keep)
{
    m_store.addOwner([](sqlite::Database &database) {
        return prepareSchema(database, QStringLiteral("transfer"), Migrations);
    });
}

wire::ServiceError TransferTable::add(const QString &user, TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        sqlite::Transaction transaction(database);
        for (TransferTask &task : tasks) {
            task.info.taskId = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
            task.info.ctime = task.info.mtime = zel::now().toMSecsSinceEpoch();
            Statement statement(database,
                "INSERT INTO transfer_task (state, priority, changed, folder, name, policy, hidden, "
                "excluded, made,"
                " resumed, info, id, user) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
            statement.bind(13, user);
            write(task, statement);
        }
        trim(user);
        transaction.commit();
    });
}

wire::ServiceError TransferTable::update(const TransferTask &task)
{
    return update(TransferTasks{task});
}

wire::ServiceError TransferTable::update(const TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        sqlite::Transaction transaction(database);
        Statement statement(database,
            "UPDATE transfer_task SET state = ?, priority = ?, changed = ?, folder = ?, name = ?, policy = ?,"
            " hidden = ?, excluded = ?, made = ?, resumed = ?, info = ? WHERE id = ?");
        for (const TransferTask &task : tasks)
            write(task, statement);
        transaction.commit();
    });
}

void TransferTable::write(const TransferTask &task, sqlite::Statement &statement)
{
    statement.bind(1, qint64(task.info.transferState)).bind(2, qint64(task.info.priority));
    statement.bind(3, qint64(task.info.mtime)).bind(4, task.folder).bind(5, task.name);
    statement.bind(6, qint64(task.policy)).bind(7, qint64(task.includeHidden));
    statement.bind(8, task.excludedSuffixes.join(QLatin1Char('/'))).bind(9, task.made);
    statement.bind(10, qint64(task.resumed)).bindBytes(11, recordBytes(task.info)).bind(12, task.id());
    statement.run();
}

void TransferTable::trim(const QString &user)
{
    Statement(m_store.connection(),
        "DELETE FROM transfer_task WHERE user = ?1 AND state >= 4 AND number NOT IN"
        " (SELECT number FROM transfer_task WHERE user = ?1 AND state >= 4 ORDER BY number DESC LIMIT ?2)")
        .bind(1, user)
        .bind(2, qint64(m_keep))
        .run();
}

wire::ServiceError TransferTable::remove(const QStringList &ids)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement(database, "DELETE FROM transfer_task WHERE id IN (SELECT value FROM json_each(?))")
            .bind(1, asJson(ids))
            .run();
    });
}

wire::ServiceError TransferTable::takeUpAgain()
{
    return m_store.use([](sqlite::Database &database) {
        database.exec("UPDATE transfer_task SET state = 1, resumed = 1 WHERE state = 2");
    });
}

wire::ServiceError TransferTable::begun(TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement rows(database, select("WHERE state = 2 OR (resumed = 1 AND state IN (1, 3))").constData());
        tasks = readAll(rows);
    });
}

wire::ServiceError TransferTable::all(const QString &user, TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement rows(database, select("WHERE user = ? ORDER BY number DESC").constData());
        tasks = readAll(rows.bind(1, user));
    });
}

wire::ServiceError TransferTable::ids(const QString &user, QStringList &ids)
{
    ids.clear();
    return m_store.use([&](sqlite::Database &database) {
        Statement rows(database, "SELECT id FROM transfer_task WHERE user = ? ORDER BY number DESC");
        rows.bind(1, user);
        while (rows.step())
            ids.append(rows.text(0));
    });
}

wire::ServiceError TransferTable::named(const QString &user, const QStringList &ids, TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement rows(database,
            select("WHERE user = ? AND id IN (SELECT value FROM json_each(?)) ORDER BY number DESC")
                .constData());
        tasks = readAll(rows.bind(1, user).bind(2, asJson(ids)));
    });
}

wire::ServiceError TransferTable::waiting(int most, TransferTasks &tasks)
{
    return m_store.use([&](sqlite::Database &database) {
        Statement rows(
            database, select("WHERE state = 1 ORDER BY priority DESC, number LIMIT ?").constData());
        tasks = readAll(rows.bind(1, qint64(most)));
    });
}

std::optional<TransferTask> TransferTable::find(const QString &id)
{
    std::optional<TransferTask> task;
    m_store.use([&](sqlite::Database &database) {
        Statement rows(database, select("WHERE id = ?").constData());
        if (rows.bind(1, id).step())
            task = readTask(rows);
    });
    return task;
}

} // namespace zel::service
