#pragma once

#include "lists/handle.h"

#include <QVector>

namespace zel {

/// Consecutive rows.
struct RowRange
{
    int first = 0;
    int last = 0;

    bool operator==(const RowRange &) const = default;
};

/// How one list of rows becomes another. First the removals, by rows of the old list, last ones first; then
/// the insertions, by rows of the new list, first ones first. When `reordered`, rows that are in both stand
/// in another order besides.
struct RowDiff
{
    QVector<RowRange> removals;
    QVector<RowRange> insertions;
    bool reordered = false;

    /// Each list holds a handle once. O(n + largest handle).
    static RowDiff between(const Handles &before, const Handles &after);
    bool operator==(const RowDiff &) const = default;
};

} // namespace zel
