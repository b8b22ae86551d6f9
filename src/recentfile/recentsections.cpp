#include "recentfile/recentsections.h"

#include <QCoreApplication>
#include <algorithm>

namespace zel::recent {

namespace {

struct SectionTexts
{
    Q_DECLARE_TR_FUNCTIONS(RecentSections)
};

void appendTimeGroups(
    ListSections &sections, const SectionedRows &rows, bool newestFirst, const TimeGroupEdges &edges)
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

void appendKinds(ListSections &sections, const SectionedRows &rows)
{
    for (int first = rows.pinned; first < rows.count;) {
        const DocumentKind kind = rows.kindAt(first);
        const int end = firstRowOfOtherKind(rows, first);
        sections.append({FirstTypeSection + kindPlace(kind), documentKindName(kind), first, end - first});
        first = end;
    }
}

// Rows after the pinned ones need a header of their own: without one they would seem to belong to these.
void appendOthers(ListSections &sections, const SectionedRows &rows)
{
    const QString title = rows.pinned > 0 ? SectionTexts::tr("Others") : QString();
    if (rows.pinned < rows.count)
        sections.append({ListSection::Unheaded, title, rows.pinned, rows.count - rows.pinned});
}

} // namespace

ListSections sectionsOf(const SectionedRows &rows, const ListSort &sort, const TimeGroupEdges &edges)
{
    ListSections sections;
    if (rows.pinned > 0)
        sections.append({PinnedSection, SectionTexts::tr("Pinned"), 0, rows.pinned});
    switch (sort.key) {
    case ListSort::Key::Time:
        appendTimeGroups(sections, rows, sort.order == Qt::DescendingOrder, edges);
        break;
    case ListSort::Key::Name:
    case ListSort::Key::Size:
        appendOthers(sections, rows);
        break;
    case ListSort::Key::Type:
        appendKinds(sections, rows);
        break;
    }
    return sections;
}

} // namespace zel::recent
