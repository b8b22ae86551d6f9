#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

namespace zel::recent {

/// What was done in memory, while the database could not be had, joins what that has: `memory` knows nothing
/// of `disk`, and numbers its sources (`memorySources`) by itself. What the user removed meanwhile is gone
/// from `disk`, too, and what was removed there before stays away. Sources that are new to `sources` come
/// without a stamp: the lists are best read again. Any thread.
RecentDelta mergeMemory(const RecentState &disk, SourceTable &sources, const RecentState &memory,
    const SourceTable &memorySources, qint64 now);

} // namespace zel::recent
