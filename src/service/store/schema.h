#pragma once

#include "base/sqlite/migrations.h"

namespace zel::service {

using sqlite::SchemaState;

/// Brings the tables of one owner to their present version, in one transaction; needs no open one. The file
/// holds tables of several owners, so each version is a row of schema_version(area, version), not the file's
/// user_version.
SchemaState prepareSchema(sqlite::Database &database, const QString &area, sqlite::Migrations migrations);

} // namespace zel::service
