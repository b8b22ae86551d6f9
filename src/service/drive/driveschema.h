#pragma once

#include "base/sqlite/database.h"

namespace zel::service {

/// Brings the tables of a drive, whose names begin with "drive_", to the present version; they may live
/// beside others. Needs no open transaction. false with the database's failure set, or when they were made
/// by a later version.
bool prepareDriveSchema(sqlite::Database &database);

} // namespace zel::service
