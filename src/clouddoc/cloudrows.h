#pragma once

#include <QVector>

/// Consecutive rows.
struct CloudRowRange
{
    int first = 0;
    int last = 0;

    bool operator==(const CloudRowRange &) const = default;
};

/// How one list of rows becomes another. First the removals, by rows of the old list, last ones first; then
/// the insertions, by rows of the new list, first ones first. When `reordered`, rows that are in both stand
/// in another order besides.
struct CloudRowChanges
{
    QVector<CloudRowRange> removals;
    QVector<CloudRowRange> insertions;
    bool reordered = false;

    bool operator==(const CloudRowChanges &) const = default;
};

/// The changes between two lists of small numbers (slots of a model), each of which holds a number once. O(n
/// + largest number).
CloudRowChanges diffRows(const QVector<int> &before, const QVector<int> &after);
