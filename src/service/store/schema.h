#pragma once

#include "base/sqlite/database.h"

#include <span>

namespace zel::service {

enum class SchemaState {
    Ready,
    Newer,  ///< made by a later version of the service; nothing was changed
    Failed, ///< the database's failure tells why
};

/// Brings the tables of one owner to their present version, in one transaction; needs no open one. The file
/// holds tables of several owners, so each version is a row of schema_version(area, version), not the file's
/// user_version. Text n of `migrations` leads from version n to n + 1; one that was released is never edited.
SchemaState prepareSchema(
    sqlite::Database &database, const QString &area, std::span<const char *const> migrations);

} // namespace zel::service
