#pragma once

#include "lists/wordfilter.h"
#include "recentfile/documentkind.h"

struct RecentFileInfo;

/// Which rows are shown. The empty filter shows all.
struct RecentFilter
{
    /// Words that the name or the folder must all contain, in any order. The user's home is not part of a
    /// folder; a device stands for a missing one.
    QString text;
    zel::recent::DocumentKinds kinds; ///< empty: all

    bool operator==(const RecentFilter &) const = default;
};

namespace zel::recent {

/// Whether the words are in what a record is found by. O(length of its texts). One thread at a time.
bool matches(const WordFilter &words, const RecentFileInfo &record);

} // namespace zel::recent
