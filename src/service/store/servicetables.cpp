#include "service/store/servicetables.h"

#include <QUuid>

namespace zel::service {

using sqlite::Database;
using sqlite::Statement;
using wire::ServiceError;

namespace {

constexpr const char *Migrations[] = {R"(
CREATE TABLE device (one INTEGER NOT NULL PRIMARY KEY CHECK (one = 1), id TEXT NOT NULL);
CREATE TABLE setting (
    user TEXT NOT NULL, key TEXT NOT NULL, value TEXT NOT NULL,
    PRIMARY KEY (user, key)) WITHOUT ROWID;
)"};

} // namespace

ServiceTables::ServiceTables(CloudDatabase &database) : m_database(database)
{
    m_database.addOwner([this](Database &opened) {
        m_settings.clear(); // it may be another file
        return prepareSchema(opened, QStringLiteral("service"), Migrations);
    });
}

ServiceError ServiceTables::deviceId(QString &id)
{
    return m_database.use([&id](Database &database) {
        Statement known(database, "SELECT id FROM device");
        if (known.step()) {
            id = known.text(0);
            return;
        }
        const QString made = QUuid::createUuid().toString(QUuid::WithoutBraces);
        Statement(database, "INSERT INTO device VALUES (1, ?)").bind(1, made).run();
        id = database.failure() == sqlite::Failure::None ? made : QString();
    });
}

ServiceError ServiceTables::load(const QString &user)
{
    if (m_settings.contains(user))
        return ServiceError::None;
    Values values;
    const ServiceError error = m_database.use([&](Database &database) {
        Statement statement(database, "SELECT key, value FROM setting WHERE user = ?");
        statement.bind(1, user);
        while (statement.step())
            values.insert(statement.text(0), statement.text(1));
    });
    if (error == ServiceError::None)
        m_settings.insert(user, values);
    return error;
}

ServiceError ServiceTables::read(const QString &user, const QString &key, QString &value)
{
    const ServiceError error = load(user);
    if (error == ServiceError::None)
        value = m_settings[user].value(key, value);
    return error;
}

ServiceError ServiceTables::readAll(const QString &user, const QString &prefix, Values &values)
{
    const ServiceError error = load(user);
    const Values all = m_settings.value(user);
    for (auto it = all.lowerBound(prefix); it != all.end() && it.key().startsWith(prefix); ++it)
        values.insert(it.key().mid(prefix.size()), it.value());
    return error;
}

ServiceError ServiceTables::write(const QString &user, const Values &values)
{
    const ServiceError error = m_database.use([&](Database &database) {
        sqlite::Transaction transaction(database);
        Statement statement(database, "INSERT OR REPLACE INTO setting VALUES (?, ?, ?)");
        for (auto it = values.begin(); it != values.end(); ++it)
            statement.bind(1, user).bind(2, it.key()).bind(3, it.value()).run();
        transaction.commit();
    });
    m_settings.remove(user); // read again: also after a failure, which may have come late
    return error;
}

} // namespace zel::service
