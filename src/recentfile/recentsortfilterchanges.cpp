// How the proxy follows its source; how it sorts and filters is in recentsortfiltermodel.cpp.
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"

#include <algorithm>

using namespace zel::recent;
using Model = ZelBoxRecentFileModel;

namespace {

bool contains(const QVector<int> &roles, std::initializer_list<int> wanted)
{
    return roles.isEmpty()
        || std::any_of(wanted.begin(), wanted.end(), [&roles](int role) { return roles.contains(role); });
}

bool mayRename(const QVector<int> &roles)
{
    return contains(roles, {Model::NameRole, Model::PathRole});
}

// Whether a record may pass the filter or stand elsewhere after a change of these roles.
bool mayPlace(const QVector<int> &roles)
{
    return mayRename(roles)
        || contains(
            roles, {Model::LastAccessRole, Model::SizeRole, Model::PinnedRole, Model::DeviceNameRole});
}

} // namespace

// A list that is loaded must not wait for the sorting of its names: it comes newest first, and is sorted when
// that is done.
void RecentSortFilterModel::load()
{
    m_nameSorter.drop();
    const bool later = m_order.isSlow(m_sort);
    m_order.sortAll(later ? RecentSort() : m_sort);
    showInstead(passing(m_order.all()));
    if (later) {
        m_touched.clear();
        m_nameSorter.start(m_order.namedSlots());
    }
}

void RecentSortFilterModel::onSourceInserted(const QModelIndex &, int first, int last)
{
    if (last - first + 1 == m_source->rowCount()) {
        load();
        return;
    }
    for (int row = first; row <= last; ++row)
        addRow(m_source->slotAt(row));
    tellSections();
}

void RecentSortFilterModel::addRow(quint32 slot)
{
    touch(slot);
    m_order.add(slot);
    if (passes(slot))
        insertShown(placeOf(slot), slot);
}

void RecentSortFilterModel::onSourceAboutToBeRemoved(const QModelIndex &, int first, int last)
{
    if (last - first + 1 == m_source->rowCount()) { // slots begin anew
        m_nameSorter.drop();
        showInstead({});
        m_order.clear();
    } else if (first == last) {
        removeRow(m_source->slotAt(first));
    } else {
        removeSourceRows(first, last);
    }
    tellSections();
}

void RecentSortFilterModel::removeRow(quint32 slot)
{
    const int row = shownRow(slot);
    touch(slot);
    m_order.remove(slot);
    if (row >= 0)
        removeShown(row, row);
}

void RecentSortFilterModel::removeSourceRows(int first, int last)
{
    std::vector<bool> marked(size_t(m_source->slotCount()));
    for (int row = first; row <= last; ++row) {
        marked[m_source->slotAt(row)] = true;
        touch(m_source->slotAt(row));
    }
    m_order.remove(marked);
    for (int row = rowCount() - 1; row >= 0; --row) {
        if (!marked[m_shown[size_t(row)]])
            continue;
        const int end = row;
        while (row > 0 && marked[m_shown[size_t(row - 1)]])
            --row;
        removeShown(row, end);
    }
}

void RecentSortFilterModel::onSourceChanged(
    const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
{
    const int first = topLeft.row();
    const int last = bottomRight.row();
    if (!mayPlace(roles) && last > first && last - first + 1 == m_source->rowCount()) {
        updateSections();
        if (!m_shown.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
    } else {
        for (int row = first; row <= last; ++row)
            changeRow(m_source->slotAt(row), roles);
    }
    tellSections();
}

void RecentSortFilterModel::changeRow(quint32 slot, const QVector<int> &roles)
{
    int row = -1;
    if (mayPlace(roles)) {
        touch(slot);
        const auto shown = std::find(m_shown.cbegin(), m_shown.cend(), slot); // its place says nothing now
        row = shown == m_shown.cend() ? -1 : int(shown - m_shown.cbegin());
        m_order.update(slot, mayRename(roles));
        const bool stays = passes(slot);
        if (row < 0) {
            if (stays)
                insertShown(placeOf(slot), slot);
            return;
        }
        if (!stays) {
            removeShown(row, row);
            return;
        }
        row = moveShown(row, slot);
    } else {
        row = shownRow(slot);
    }
    if (row >= 0)
        Q_EMIT dataChanged(index(row), index(row), roles);
}

// Row before which the order puts a record that is not shown.
int RecentSortFilterModel::placeOf(quint32 slot) const
{
    return int(std::partition_point(m_shown.cbegin(), m_shown.cend(), [this, slot](quint32 other) {
        return m_order.comesBefore(other, slot);
    }) - m_shown.cbegin());
}

int RecentSortFilterModel::shownRow(quint32 slot) const
{
    const int place = placeOf(slot);
    if (place < rowCount() && m_shown[size_t(place)] == slot)
        return place;
    const auto shown = std::find(m_shown.cbegin(), m_shown.cend(), slot);
    return shown == m_shown.cend() ? -1 : int(shown - m_shown.cbegin());
}

void RecentSortFilterModel::insertShown(int row, quint32 slot)
{
    beginInsertRows({}, row, row);
    m_shown.insert(m_shown.begin() + row, slot);
    updateSections();
    endInsertRows();
}

void RecentSortFilterModel::removeShown(int first, int last)
{
    beginRemoveRows({}, first, last);
    m_shown.erase(m_shown.begin() + first, m_shown.begin() + last + 1);
    updateSections();
    endRemoveRows();
}

// The rows before and behind it are in order; it may belong elsewhere among them. Returns its new row.
int RecentSortFilterModel::moveShown(int from, quint32 slot)
{
    const auto before = [this, slot](quint32 other) { return m_order.comesBefore(other, slot); };
    const auto begin = m_shown.begin();
    const auto own = begin + from;
    auto place = std::partition_point(begin, own, before);
    if (place == own)
        place = std::partition_point(own + 1, m_shown.end(), before);
    const int to = int(place - begin);
    if (to == from || to == from + 1) {
        updateSections();
        return from;
    }
    beginMoveRows({}, from, from, {}, to);
    if (to > from)
        std::rotate(own, own + 1, place);
    else
        std::rotate(place, own, own + 1);
    updateSections();
    endMoveRows();
    return to > from ? to - 1 : to;
}

void RecentSortFilterModel::touch(quint32 slot)
{
    if (!m_nameSorter.isRunning())
        return;
    if (slot >= m_touched.size())
        m_touched.resize(slot + 1);
    m_touched[slot] = true;
}
