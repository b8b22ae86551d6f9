#pragma once

#include "base/sqlite/database.h"

#include <span>

/// Tables that come up to date step by step. Text n of `migrations` leads from version n to n + 1; one that
/// was delivered is never edited.
namespace zel::sqlite {

enum class SchemaState {
    Ready,
    Newer,  ///< made by a later version of the program; nothing was changed
    Failed, ///< the database's failure tells why
};

using Migrations = std::span<const char *const>;

/// For a file of one owner, who keeps the version in the file's user_version. In one transaction; needs no
/// open one. Nothing is written, and nobody waited for, when the version is the present one.
SchemaState migrateFile(Database &database, Migrations migrations);

/// For a file that holds the tables of several owners: each version is a row of schema_version(area,
/// version). In one transaction; needs no open one.
SchemaState migrateArea(Database &database, const QString &area, Migrations migrations);

} // namespace zel::sqlite
