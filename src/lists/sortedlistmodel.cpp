#include "lists/sortedlistmodel.h"

#include "lists/rowdiff.h"

#include <algorithm>

using zel::Handle;
using zel::Handles;

namespace {

constexpr int MostRanges = 32;        ///< of rows that come or go, told one by one
constexpr size_t MostDataSingly = 64; ///< rows with other data, told one by one
constexpr size_t FewRecords = 1000;   ///< asked in any order

Handles without(const Handles &list, const std::vector<bool> &marked)
{
    Handles rest;
    rest.reserve(list.size());
    std::copy_if(list.cbegin(), list.cend(), std::back_inserter(rest),
        [&marked](Handle handle) { return handle >= marked.size() || !marked[handle]; });
    return rest;
}

template <typename Before> Handles merged(const Handles &a, const Handles &b, const Before &before)
{
    Handles all(a.size() + b.size());
    std::merge(a.cbegin(), a.cend(), b.cbegin(), b.cend(), all.begin(), before);
    return all;
}

void append(Handles *list, const Handles &more)
{
    list->insert(list->end(), more.cbegin(), more.cend());
}

} // namespace

int SortedListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int SortedListModel::rowOfHandle(Handle handle) const
{
    return placeOf(m_rows, handle);
}

zel::ListSections SortedListModel::sectionsOf(int count) const
{
    if (count == 0)
        return {};
    return {{zel::ListSection::Unheaded, {}, 0, count}};
}

// -1: not there. Until a change is told, its record stands at the old place, where the new value does not
// lead.
int SortedListModel::placeOf(const Handles &list, Handle handle) const
{
    auto place = std::partition_point(
        list.cbegin(), list.cend(), [this, handle](Handle other) { return isBefore(other, handle); });
    if (place == list.cend() || *place != handle)
        place = std::find(list.cbegin(), list.cend(), handle);
    return place == list.cend() ? -1 : int(place - list.cbegin());
}

// The place before which the handle at `from` belongs; all others are in order.
int SortedListModel::targetOf(const Handles &list, int from) const
{
    const auto own = list.cbegin() + from;
    const auto before = [this, own](Handle other) { return isBefore(other, *own); };
    auto target = std::partition_point(list.cbegin(), own, before);
    if (target == own)
        target = std::partition_point(own + 1, list.cend(), before);
    return int(target - list.cbegin());
}

static void moveWithin(Handles &list, int from, int target)
{
    const auto own = list.begin() + from;
    if (target > from)
        std::rotate(own, own + 1, list.begin() + target);
    else
        std::rotate(list.begin() + target, own, own + 1);
}

// Records are asked in the order of their handles, as they lie in memory: in the order of the rows each of
// many would be waited for.
Handles SortedListModel::passing(const Handles &candidates) const
{
    Handles rows;
    rows.reserve(candidates.size());
    if (candidates.size() < FewRecords) {
        std::copy_if(candidates.cbegin(), candidates.cend(), std::back_inserter(rows),
            [this](Handle handle) { return passes(handle); });
        return rows;
    }
    std::vector<bool> pass(size_t(*std::max_element(candidates.cbegin(), candidates.cend())) + 1);
    for (const Handle handle : candidates)
        pass[handle] = true;
    for (Handle handle = 0; handle < pass.size(); ++handle)
        pass[handle] = pass[handle] && passes(handle);
    std::copy_if(candidates.cbegin(), candidates.cend(), std::back_inserter(rows),
        [&pass](Handle handle) { return pass[handle]; });
    return rows;
}

// Many scattered rows leave from the end, where they stand in no order with those before.
int SortedListModel::successorOf(int row, int first, int last) const
{
    if (last + 1 < rowCount())
        return last + 1;
    const Handle leaving = handleAt(row);
    const auto next = std::partition_point(m_rows.cbegin(), m_rows.cbegin() + first,
        [this, leaving](Handle other) { return isBefore(other, leaving); });
    return std::min(int(next - m_rows.cbegin()), first - 1);
}

void SortedListModel::apply(const zel::ListDelta &delta)
{
    const size_t records = delta.removed.size() + delta.inserted.size() + delta.changed.size();
    if (records == 0)
        return;
    if (records == 1) // as news come
        applyOne(delta);
    else
        applyMany(delta);
    renewSections();
    tellData(delta.changed, delta.roles);
    tellRest();
}

void SortedListModel::applyOne(const zel::ListDelta &delta)
{
    if (!delta.removed.empty()) {
        const Handle handle = delta.removed.front();
        m_order.erase(m_order.begin() + placeOf(m_order, handle));
        if (const int row = placeOf(m_rows, handle); row >= 0)
            removeRowRange(row, row);
    } else if (!delta.inserted.empty()) {
        m_order.push_back(delta.inserted.front());
        moveWithin(m_order, int(m_order.size()) - 1, targetOf(m_order, int(m_order.size()) - 1));
        if (passes(delta.inserted.front()))
            insertRow(delta.inserted.front());
    } else {
        changeOne(delta.changed.front());
    }
}

void SortedListModel::changeOne(Handle handle)
{
    const int place = placeOf(m_order, handle);
    const int row = placeOf(m_rows, handle);
    moveWithin(m_order, place, targetOf(m_order, place));
    const bool shown = passes(handle);
    if (row < 0 && shown)
        insertRow(handle);
    else if (row >= 0 && !shown)
        removeRowRange(row, row);
    else if (row >= 0)
        moveRow(row);
}

// None of the changed ones leads to its place, so all of them are taken out and put in anew.
void SortedListModel::applyMany(const zel::ListDelta &delta)
{
    const auto before = [this](Handle a, Handle b) { return isBefore(a, b); };
    Handles leaving = delta.removed;
    append(&leaving, delta.changed);
    std::vector<bool> marked(
        leaving.empty() ? 0 : size_t(*std::max_element(leaving.cbegin(), leaving.cend())) + 1);
    for (const Handle handle : leaving)
        marked[handle] = true;
    Handles coming = delta.inserted;
    append(&coming, delta.changed);
    std::sort(coming.begin(), coming.end());
    coming.erase(std::unique(coming.begin(), coming.end()), coming.end());
    std::sort(coming.begin(), coming.end(), before);
    m_order = merged(without(m_order, marked), coming, before);
    show(merged(without(m_rows, marked), passing(coming), before));
}

void SortedListModel::applyToAll(const QVector<int> &roles)
{
    renewSections();
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
    tellRest();
}

void SortedListModel::refreshSections()
{
    renewSections();
    tellRest();
}

void SortedListModel::resort()
{
    Handles order = m_order;
    std::sort(order.begin(), order.end(), [this](Handle a, Handle b) { return isBefore(a, b); });
    setOrder(std::move(order));
}

void SortedListModel::setOrder(Handles inOrder)
{
    m_order = std::move(inOrder);
    show(passing(m_order));
    renewSections();
    tellRest();
}

void SortedListModel::refilter(bool narrower)
{
    show(passing(narrower ? m_rows : m_order));
    tellRest();
}

void SortedListModel::reset()
{
    beginResetModel();
    m_order.clear();
    m_rows.clear();
    renewSections();
    endResetModel();
    tellRest();
}

void SortedListModel::insertRow(Handle handle)
{
    const auto place = std::partition_point(
        m_rows.cbegin(), m_rows.cend(), [this, handle](Handle other) { return isBefore(other, handle); });
    insertRowRange(int(place - m_rows.cbegin()), {handle});
}

void SortedListModel::insertRowRange(int first, const Handles &rows)
{
    if (rows.empty())
        return;
    beginInsertRows({}, first, first + int(rows.size()) - 1);
    m_rows.insert(m_rows.begin() + first, rows.cbegin(), rows.cend());
    renewSections();
    endInsertRows();
}

void SortedListModel::removeRowRange(int first, int last)
{
    beginRemoveRows({}, first, last);
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
    renewSections();
    endRemoveRows();
}

void SortedListModel::moveRow(int row)
{
    const int target = targetOf(m_rows, row);
    if (target == row || target == row + 1)
        return;
    beginMoveRows({}, row, row, {}, target);
    moveWithin(m_rows, row, target);
    renewSections();
    endMoveRows();
}

void SortedListModel::show(const Handles &rows)
{
    const zel::RowDiff diff = zel::RowDiff::between(m_rows, rows);
    if (diff.reordered || diff.removals.size() + diff.insertions.size() > MostRanges)
        showByLayout(rows, diff);
    else
        showByRanges(rows, diff);
}

void SortedListModel::showByRanges(const Handles &rows, const zel::RowDiff &diff)
{
    for (const zel::RowRange &range : diff.removals)
        removeRowRange(range.first, range.last);
    for (const zel::RowRange &range : diff.insertions)
        insertRowRange(range.first, {rows.cbegin() + range.first, rows.cbegin() + range.last + 1});
}

// A view pays for each range it is told of, so many scattered rows go to the end first and leave from there,
// and come in the other way round.
void SortedListModel::showByLayout(const Handles &rows, const zel::RowDiff &diff)
{
    const bool sorted = diff.removals.isEmpty() && diff.insertions.isEmpty();
    const LayoutChangeHint hint = sorted ? VerticalSortHint : NoLayoutChangeHint;
    Handles leaving;
    for (const zel::RowRange &range : diff.removals)
        leaving.insert(leaving.end(), m_rows.cbegin() + range.first, m_rows.cbegin() + range.last + 1);
    Handles coming;
    Handles staying;
    auto next = rows.cbegin();
    for (const zel::RowRange &range : diff.insertions) {
        staying.insert(staying.end(), next, rows.cbegin() + range.first);
        next = rows.cbegin() + range.last + 1;
        coming.insert(coming.end(), rows.cbegin() + range.first, next);
    }
    staying.insert(staying.end(), next, rows.cend());

    Handles all = staying;
    append(&all, leaving);
    relayout(all, staying.size(), hint);
    if (!leaving.empty())
        removeRowRange(int(staying.size()), rowCount() - 1);
    if (coming.empty())
        return;
    beginInsertRows({}, int(staying.size()), int(rows.size()) - 1);
    append(&m_rows, coming);
    renewSections(staying.size());
    endInsertRows();
    relayout(rows, rows.size(), hint);
}

// Persistent indexes are few: the current row, the selection's ends, what a view keeps.
void SortedListModel::relayout(const Handles &rows, size_t inOrder, LayoutChangeHint hint)
{
    if (rows == m_rows)
        return;
    Q_EMIT layoutAboutToBeChanged({}, hint);
    const QModelIndexList before = persistentIndexList();
    Handles rowOf; // by handle
    if (!before.isEmpty())
        rowOf.resize(size_t(*std::max_element(rows.cbegin(), rows.cend())) + 1);
    for (size_t row = 0; row < rows.size() && !before.isEmpty(); ++row)
        rowOf[rows[row]] = Handle(row);
    QModelIndexList after;
    for (const QModelIndex &old : before)
        after.append(index(int(rowOf[m_rows[size_t(old.row())]])));
    m_rows = rows;
    renewSections(inOrder);
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, hint);
}

// Rows behind those that are in order are on their way in or out; they count for the last section.
void SortedListModel::renewSections(size_t inOrder)
{
    m_sections = sectionsOf(int(inOrder));
    const int others = int(m_rows.size() - inOrder);
    if (others > 0 && m_sections.isEmpty())
        m_sections = SortedListModel::sectionsOf(others);
    else if (others > 0)
        m_sections.last().count += others;
}

void SortedListModel::tellData(const Handles &handles, const QVector<int> &roles)
{
    if (handles.size() > MostDataSingly && !m_rows.empty()) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
        return;
    }
    for (const Handle handle : handles) {
        const QModelIndex changed = index(placeOf(m_rows, handle));
        if (changed.isValid())
            Q_EMIT dataChanged(changed, changed, roles);
    }
}

void SortedListModel::tellRest()
{
    if (m_toldSections != m_sections) {
        m_toldSections = m_sections;
        Q_EMIT sectionsChanged();
    }
    const int rows = std::exchange(m_toldRows, rowCount());
    const int total = std::exchange(m_total, int(m_order.size()));
    if (rows != m_toldRows || total != m_total)
        Q_EMIT countsChanged();
}
