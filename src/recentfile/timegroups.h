#pragma once

#include <QDate>
#include <QString>
#include <array>
#include <functional>

/// Splitting a list that is sorted newest first into seven groups by time. Plain functions, any thread; the
/// titles are translated.
namespace zel::recent {

inline constexpr int TimeGroupCount = 7;

/// One group of rows. Kinds run from 1 (today and later) to 7 (oldest).
struct TimeGroup
{
    int kind = 0;
    QString title;
    int firstRow = 0;
    int count = 0;

    bool operator==(const TimeGroup &) const = default;
};
using TimeGroups = std::array<TimeGroup, TimeGroupCount>; ///< index is kind - 1

/// Where the groups begin and end on one day.
struct TimeGroupEdges
{
    QDate today;
    std::array<QDate, TimeGroupCount> reference;    ///< newest day of each group
    std::array<qint64, TimeGroupCount> before = {}; ///< end of that day, ms since epoch (exclusive)

    bool operator==(const TimeGroupEdges &) const = default;
};

/// The edges as seen on the local date `today`.
TimeGroupEdges timeGroupEdges(const QDate &today);

/// Kind of a time (ms since epoch): the oldest group whose reference date it does not pass, else 1.
int timeGroupKind(const TimeGroupEdges &edges, qint64 time);

/// Title as the header shows it.
QString timeGroupTitle(const TimeGroupEdges &edges, int kind);

/// First row and count of each group of `rowCount` rows sorted newest first; `timeAt` gives a row's time in
/// ms. O(log rowCount). An empty group starts where it would be.
TimeGroups groupRows(const TimeGroupEdges &edges, int rowCount, const std::function<qint64(int)> &timeAt);

} // namespace zel::recent
