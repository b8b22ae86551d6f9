#include "recentfile/recentsections.h"

#include "recentfile/recentfilter.h"

#include <QCoreApplication>
#include <algorithm>

namespace zel::recent {

namespace {

struct SectionTexts
{
    Q_DECLARE_TR_FUNCTIONS(RecentSections)
};

void appendTimeGroups(
    RecentSections &sections, const SectionedRows &rows, bool newestFirst, const TimeGroupEdges &edges)
{
    const int last = rows.count - 1;
    const int count = rows.count - rows.pinned;
    TimeGroups groups = groupRows(
        edges, count, [&](int row) { return rows.timeAt(newestFirst ? rows.pinned + row : last - row); });
    if (!newestFirst) {
        for (TimeGroup &group : groups)
            group.firstRow = count - group.firstRow - group.count;
        std::reverse(groups.begin(), groups.end());
    }
    for (const TimeGroup &group : groups) {
        if (group.count > 0)
            sections.append({group.kind, group.title, rows.pinned + group.firstRow, group.count});
    }
}

int firstRowOfOtherKind(const SectionedRows &rows, int first)
{
    const DocumentKind kind = rows.kindAt(first);
    int end = rows.count;
    for (int low = first + 1; low < end;) {
        const int middle = low + (end - low) / 2;
        if (rows.kindAt(middle) == kind)
            low = middle + 1;
        else
            end = middle;
    }
    return end;
}

void appendKinds(RecentSections &sections, const SectionedRows &rows)
{
    for (int first = rows.pinned; first < rows.count;) {
        const DocumentKind kind = rows.kindAt(first);
        const int end = firstRowOfOtherKind(rows, first);
        sections.append(
            {RecentSection::FirstType + kindPlace(kind), documentKindName(kind), first, end - first});
        first = end;
    }
}

// Rows after the pinned ones need a header of their own: without one they would seem to belong to these.
void appendOthers(RecentSections &sections, const SectionedRows &rows)
{
    const QString title = rows.pinned > 0 ? SectionTexts::tr("Others") : QString();
    if (rows.pinned < rows.count)
        sections.append({RecentSection::Unheaded, title, rows.pinned, rows.count - rows.pinned});
}

} // namespace

RecentSections sectionsOf(const SectionedRows &rows, const RecentSort &sort, const TimeGroupEdges &edges)
{
    RecentSections sections;
    if (rows.pinned > 0)
        sections.append({RecentSection::Pinned, SectionTexts::tr("Pinned"), 0, rows.pinned});
    switch (sort.key) {
    case RecentSort::Key::Time:
        appendTimeGroups(sections, rows, sort.order == Qt::DescendingOrder, edges);
        break;
    case RecentSort::Key::Name:
    case RecentSort::Key::Size:
        appendOthers(sections, rows);
        break;
    case RecentSort::Key::Type:
        appendKinds(sections, rows);
        break;
    }
    return sections;
}

} // namespace zel::recent
