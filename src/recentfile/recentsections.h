#pragma once

#include "lists/listsection.h"
#include "lists/listsort.h"
#include "recentfile/documentkind.h"
#include "recentfile/timegroups.h"

#include <functional>

namespace zel::recent {

/// Keys of the sections of the Recent page, beside ListSection::Unheaded. 1 to 7 are the kinds of time
/// groups.
enum RecentSectionKey : int {
    PinnedSection = 0,
    FirstTimeSection = 1,
    LastTimeSection = 7,
    FirstTypeSection = 200
};

/// Sorted rows as the splitting sees them.
struct SectionedRows
{
    int count = 0;
    int pinned = 0; ///< so many at the top
    std::function<qint64(int row)> timeAt;
    std::function<DocumentKind(int row)> kindAt;
};

/// The sections of rows sorted by `sort`; `edges` are those of the day. O(log count). GUI thread
/// (translated).
ListSections sectionsOf(const SectionedRows &rows, const ListSort &sort, const TimeGroupEdges &edges);

} // namespace zel::recent
