#pragma once

#include "service/store/clouddatabase.h"

#include <QHash>
#include <QMap>

namespace zel::service {

/// The tables that belong to no area: the id of this device, and settings by user. Main thread. Settings are
/// read from the database once; nobody else writes them.
class ServiceTables
{
public:
    using Values = QMap<QString, QString>;

    /// Adds itself to the owners of `database`, which outlives it.
    explicit ServiceTables(CloudDatabase &database);

    /// A UUID without braces; the same for the life of the database. Empty after a failure.
    wire::ServiceError deviceId(QString &id);

    /// Leaves `value` as it is when the setting was never written.
    wire::ServiceError read(const QString &user, const QString &key, QString &value);
    /// All settings whose key begins with `prefix`, by the rest of their key.
    wire::ServiceError readAll(const QString &user, const QString &prefix, Values &values);
    /// All or none; on disk when there is no error.
    wire::ServiceError write(const QString &user, const Values &values);

private:
    wire::ServiceError load(const QString &user);

    CloudDatabase &m_database;
    QHash<QString, Values> m_settings; ///< by user, of those that were asked for
};

} // namespace zel::service
