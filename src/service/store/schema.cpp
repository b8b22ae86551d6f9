#include "service/store/schema.h"

namespace zel::service {

SchemaState prepareSchema(sqlite::Database &database, const QString &area, sqlite::Migrations migrations)
{
    return sqlite::migrateArea(database, area, migrations);
}

} // namespace zel::service
