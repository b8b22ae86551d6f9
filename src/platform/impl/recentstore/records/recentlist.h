#pragma once

#include "recenttypes.h"

namespace zel::recent {

/// The order of the list.
bool newerFirst(const RecentFileInfo &a, const RecentFileInfo &b);

/// The records to show, newest first.
RecordInfoList visibleRecords(const RecentState &state);

/// Brings a list that is ordered newest first up to date; it stays so ordered. O(list + delta).
/// Records that the list does not have are taken in when added and ignored when changed or removed.
void update(RecordInfoList &list, const RecentDelta &delta);

} // namespace zel::recent
