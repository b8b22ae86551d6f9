#include "recentfile/timegroups.h"

#include "base/timetext.h"

#include <QCoreApplication>
#include <QDateTime>
#include <limits>

namespace zel::recent {

namespace {

struct GroupTexts
{
    Q_DECLARE_TR_FUNCTIONS(TimeGroups)
};

constexpr int ThisMonth = 4;
constexpr int FirstMonthGroup = 5;
constexpr int LeastDaysOfThisMonth = 7;

QDate &referenceOf(TimeGroupEdges &edges, int kind)
{
    return edges.reference[size_t(kind - 1)];
}

QDate lastDayOfMonthBefore(const QDate &day)
{
    return QDate(day.year(), day.month(), 1).addDays(-1);
}

// The month groups are calendar months: the previous one, the one before it, and the third with everything
// older. A reference date is the newest day of its group, so a month's is the first of its days met on the
// way back, its last. In the first half of a month that day lies close to the newest day of "This Month" (7
// days ago), and in the first week even on or after it: the previous month would then take rows from "This
// Month", "This Week" and "Yesterday". When it lies less than 7 days before that edge, it moves back by 7
// days. One move is always enough: on day d of a month the last day of the previous month is d days ago,
// moved it is d + 7 days ago, behind 7 days ago for every d. Its month stays the same, so the title does too.
void setMonthReferences(TimeGroupEdges &edges)
{
    QDate day = edges.today;
    for (int kind = FirstMonthGroup; kind <= TimeGroupCount; ++kind) {
        day = lastDayOfMonthBefore(day);
        referenceOf(edges, kind) = day;
    }
    QDate &newest = referenceOf(edges, FirstMonthGroup);
    if (newest.daysTo(referenceOf(edges, ThisMonth)) < LeastDaysOfThisMonth)
        newest = newest.addDays(-7);
}

// A day can begin later than 00:00 (clock change) or be missing altogether (change of the date line).
qint64 startOfDay(QDate day)
{
    QDateTime start = day.startOfDay();
    for (int i = 0; i < 2 && !start.isValid(); ++i) {
        day = day.addDays(1);
        start = day.startOfDay();
    }
    return start.toMSecsSinceEpoch();
}

} // namespace

TimeGroupEdges timeGroupEdges(const QDate &today)
{
    TimeGroupEdges edges;
    edges.today = today;
    referenceOf(edges, 1) = today;
    referenceOf(edges, 2) = today.addDays(-1);
    referenceOf(edges, 3) = today.addDays(-2);
    referenceOf(edges, ThisMonth) = today.addDays(-7);
    setMonthReferences(edges);

    edges.before[0] = std::numeric_limits<qint64>::max(); // times to come count as today
    for (size_t i = 1; i < edges.before.size(); ++i)
        edges.before[i] = startOfDay(edges.reference[i].addDays(1));
    return edges;
}

int timeGroupKind(const TimeGroupEdges &edges, qint64 time)
{
    for (int kind = TimeGroupCount; kind > 1; --kind) {
        if (time < edges.before[size_t(kind - 1)])
            return kind;
    }
    return 1;
}

QString timeGroupTitle(const TimeGroupEdges &edges, int kind)
{
    switch (kind) {
    case 1:
        return GroupTexts::tr("Today");
    case 2:
        return GroupTexts::tr("Yesterday");
    case 3:
        return GroupTexts::tr("This Week");
    case ThisMonth:
        return GroupTexts::tr("This Month");
    }
    const QDate day = edges.reference[size_t(kind - 1)];
    const QString name = textLocale().standaloneMonthName(day.month());
    if (day.year() == edges.today.year())
        return dateWords(GroupTexts::tr("%1 Month"), day.month(), day.year(), name);
    return dateWords(GroupTexts::tr("%1 Year %2 Month"), day.year(), day.month(), name);
}

TimeGroups groupRows(const TimeGroupEdges &edges, int rowCount, const std::function<qint64(int)> &timeAt)
{
    TimeGroups groups;
    int first = 0;
    for (int kind = 1; kind <= TimeGroupCount; ++kind) {
        int end = rowCount;
        for (int low = first; kind < TimeGroupCount && low < end;) {
            const int middle = low + (end - low) / 2;
            if (timeAt(middle) < edges.before[size_t(kind)])
                end = middle;
            else
                low = middle + 1;
        }
        groups[size_t(kind - 1)] = {kind, timeGroupTitle(edges, kind), first, end - first};
        first = end;
    }
    return groups;
}

} // namespace zel::recent
