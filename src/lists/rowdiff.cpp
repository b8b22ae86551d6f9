#include "lists/rowdiff.h"

#include <algorithm>

namespace zel {

namespace {

using Marks = std::vector<bool>; // by handle

Marks marksOf(const Handles &rows, size_t size)
{
    Marks marked(size, false);
    for (const Handle handle : rows)
        marked[handle] = true;
    return marked;
}

// Runs of rows that are not marked, first ones first.
QVector<RowRange> unmarkedRuns(const Handles &rows, const Marks &marked)
{
    QVector<RowRange> runs;
    for (int row = 0; row < int(rows.size()); ++row) {
        if (marked[rows[size_t(row)]])
            continue;
        if (!runs.isEmpty() && runs.last().last == row - 1)
            runs.last().last = row;
        else
            runs.append({row, row});
    }
    return runs;
}

bool isReordered(const Handles &before, const Marks &stays, const Handles &after, const Marks &was)
{
    auto next = after.cbegin();
    for (const Handle handle : before) {
        if (!stays[handle])
            continue;
        while (!was[*next])
            ++next;
        if (*next++ != handle)
            return true;
    }
    return false;
}

QVector<RowRange> allOf(const Handles &rows)
{
    return rows.empty() ? QVector<RowRange>() : QVector<RowRange>{{0, int(rows.size()) - 1}};
}

} // namespace

RowDiff RowDiff::between(const Handles &before, const Handles &after)
{
    if (before.empty() || after.empty())
        return {allOf(before), allOf(after), false};
    Handle largest = 0;
    for (const Handles *rows : {&before, &after})
        largest = std::max(largest, *std::max_element(rows->cbegin(), rows->cend()));
    const Marks was = marksOf(before, size_t(largest) + 1);
    const Marks stays = marksOf(after, size_t(largest) + 1);
    RowDiff diff;
    diff.removals = unmarkedRuns(before, stays);
    std::reverse(diff.removals.begin(), diff.removals.end());
    diff.insertions = unmarkedRuns(after, was);
    diff.reordered = isReordered(before, stays, after, was);
    return diff;
}

} // namespace zel
