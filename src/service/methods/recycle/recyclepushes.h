#pragma once

#include "service/methods/drive/drivecontext.h"

/// Tells all clients of changes in the recycle bin. Main thread.
namespace zel::service {

enum class RecycleAction { Added = 1, Recovered = 2, Destroyed = 3, Emptied = 4 };

void tellRecycled(const DriveContext &context, const QStringList &recycleIds); ///< they came in
void tellGone(const DriveContext &context, RecycleAction action, const QStringList &recycleIds);

} // namespace zel::service
