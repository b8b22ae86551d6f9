#pragma once

#include "base/sqlite/migrations.h"

namespace zel::service {

/// Brings the tables of this folder to their present version, which is kept in schema_version under "tables":
/// the file holds tables of others too.
sqlite::SchemaState prepareTables(sqlite::Database &database);

} // namespace zel::service
