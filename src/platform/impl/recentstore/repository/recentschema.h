#pragma once

#include "base/sqlite/migrations.h"

namespace zel::recent {

/// Sets the connection up and brings the tables to the present version, which is kept in the database's
/// user_version.
sqlite::SchemaState prepareSchema(sqlite::Database &database);

} // namespace zel::recent
