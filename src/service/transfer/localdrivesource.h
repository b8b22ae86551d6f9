#pragma once

#include "service/transfer/drivethread.h"

namespace zel::service {

/// A factory of drives on one local folder, for several threads: each gets a drive and a database connection
/// of its own. The first one that is opened clears away what a killed process left; the others could take
/// what is being written for that. A database that is damaged is kept aside and a new one begun, with new
/// ids.
DriveThread::Factory localDrives(const QString &root, const QString &databaseFile);

} // namespace zel::service
