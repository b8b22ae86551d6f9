#pragma once

#include "base/sqlite/database.h"

namespace zel::service {

inline constexpr int TablesVersion =
    1; ///< of the tables of this folder, kept in schema_version under "tables"

enum class TablesState {
    Ready,
    Newer,  ///< made by a later version of the service; nothing was changed
    Failed, ///< the database's failure tells why
};

/// Brings the tables of this folder to the present version, in one transaction. The file holds tables of
/// others too, so the version is a row of schema_version(area, version) and not the file's user_version.
TablesState prepareTables(sqlite::Database &database);

} // namespace zel::service
