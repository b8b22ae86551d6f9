#include "clouddoc/cloudrows.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<bool> marks(const QVector<int> &rows, int size)
{
    std::vector<bool> marked(size_t(size), false);
    for (const int row : rows)
        marked[size_t(row)] = true;
    return marked;
}

// Runs of rows whose number is not marked, first ones first.
QVector<CloudRowRange> unmarkedRuns(const QVector<int> &rows, const std::vector<bool> &marked)
{
    QVector<CloudRowRange> runs;
    for (int row = 0; row < rows.size(); ++row) {
        if (marked[size_t(rows.at(row))])
            continue;
        if (!runs.isEmpty() && runs.last().last == row - 1)
            runs.last().last = row;
        else
            runs.append({row, row});
    }
    return runs;
}

bool isReordered(const QVector<int> &before, const std::vector<bool> &stays, const QVector<int> &after,
    const std::vector<bool> &was)
{
    int next = 0;
    for (const int number : before) {
        if (!stays[size_t(number)])
            continue;
        while (!was[size_t(after.at(next))])
            ++next;
        if (after.at(next++) != number)
            return true;
    }
    return false;
}

} // namespace

CloudRowChanges diffRows(const QVector<int> &before, const QVector<int> &after)
{
    int size = 0;
    for (const int number : before)
        size = std::max(size, number + 1);
    for (const int number : after)
        size = std::max(size, number + 1);
    const std::vector<bool> was = marks(before, size);
    const std::vector<bool> stays = marks(after, size);
    CloudRowChanges changes;
    changes.removals = unmarkedRuns(before, stays);
    std::reverse(changes.removals.begin(), changes.removals.end());
    changes.insertions = unmarkedRuns(after, was);
    changes.reordered = isReordered(before, stays, after, was);
    return changes;
}
