#pragma once

#include "recentfile/documentkind.h"
#include "recentfile/timegroups.h"

#include <QString>
#include <QVector>
#include <functional>

struct RecentSort;

namespace zel::recent {

/// Rows that stand under one header. Plain value.
struct RecentSection
{
    /// Pinned; 1 to 7 are the kinds of time groups; the rest are for other orders.
    enum Key : int { Pinned = 0, FirstTimeGroup = 1, LastTimeGroup = 7, Unheaded = 100, FirstType = 200 };

    int key = Unheaded;
    QString title; ///< empty: the rows stand without a header
    int firstRow = 0;
    int count = 0; ///< never 0: what has no rows has no section

    bool operator==(const RecentSection &) const = default;
};
using RecentSections = QVector<RecentSection>; ///< in the order of the rows, without gaps

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
RecentSections sectionsOf(const SectionedRows &rows, const RecentSort &sort, const TimeGroupEdges &edges);

} // namespace zel::recent
