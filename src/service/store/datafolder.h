#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"

#include <QString>

namespace zel::service {

/// The service's databases and what its threads work on belong to one process, whatever runtime folder it
/// was started with. That process keeps the result until its last thread has ended.
struct DataFolder
{
    posix::UniqueFd lock; ///< empty also where files cannot be locked
    bool isTaken = false; ///< another process has it, still so at the deadline
};

/// Makes the folder when it is missing. Waits for one that is just ending.
DataFolder claimDataFolder(const QString &folder, posix::Deadline deadline);

} // namespace zel::service
