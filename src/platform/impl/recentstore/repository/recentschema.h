#pragma once

#include "base/sqlite/migrations.h"

namespace zel::recent {

inline constexpr int SchemaVersion = 3; ///< kept in the database's user_version

/// Sets the connection up and brings the tables to the present version.
sqlite::SchemaState prepareSchema(sqlite::Database &database);

} // namespace zel::recent
