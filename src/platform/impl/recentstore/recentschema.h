#pragma once

#include "base/sqlite/database.h"

namespace zel::recent {

inline constexpr int SchemaVersion = 2; ///< kept in the database's user_version

enum class SchemaState {
    Ready,
    Newer,  ///< made by a later version of the box
    Failed, ///< the database's failure tells why
};

/// Sets the connection up and brings the tables to the present version.
SchemaState prepareSchema(sqlite::Database &database);

} // namespace zel::recent
