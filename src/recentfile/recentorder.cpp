#include "recentfile/recentorder.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recordtexts.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace zel::recent {

namespace {

constexpr int FewNames = 5000; // about 6 ms

// Files of unknown size come last either way.
qint64 sizeRank(const RecentFileInfo &record, Qt::SortOrder order)
{
    if (record.size < 0)
        return std::numeric_limits<qint64>::max();
    return order == Qt::AscendingOrder ? record.size : -record.size;
}

} // namespace

DocumentKind RecentOrder::kindOf(quint32 slot) const
{
    if (slot >= m_kindBytes.size())
        m_kindBytes.resize(size_t(m_source->slotCount()));
    quint8 &known = m_kindBytes[slot];
    if (known == 0)
        known = quint8(documentKind(shownName(m_source->recordIn(slot))));
    return DocumentKind(known);
}

bool RecentOrder::comesBefore(quint32 a, quint32 b) const
{
    const RecentFileInfo &x = m_source->recordIn(a);
    const RecentFileInfo &y = m_source->recordIn(b);
    if (x.pinned != y.pinned)
        return x.pinned;
    const bool ascending = m_sort.order == Qt::AscendingOrder;
    switch (m_sort.key) {
    case RecentSort::Key::Time:
        return ascending ? recent::comesBefore(y, x) : recent::comesBefore(x, y);
    case RecentSort::Key::Name: {
        const int order = m_names.compare(a, b);
        if (order != 0)
            return ascending ? order < 0 : order > 0;
        const auto [first, second] = ascending ? std::tie(x, y) : std::tie(y, x);
        return std::tie(first.path, first.id) < std::tie(second.path, second.id);
    }
    case RecentSort::Key::Size:
        if (const qint64 rank = sizeRank(x, m_sort.order), other = sizeRank(y, m_sort.order); rank != other)
            return rank < other;
        break;
    case RecentSort::Key::Type:
        if (kindOf(a) != kindOf(b))
            return (kindOf(a) < kindOf(b)) == ascending;
        break;
    }
    return recent::comesBefore(x, y);
}

bool RecentOrder::isSlow(const RecentSort &sort) const
{
    return sort.key == RecentSort::Key::Name && !isSortedByName() && m_source->rowCount() > FewNames;
}

bool RecentOrder::isSortedByName() const
{
    return m_sort.key == RecentSort::Key::Name && int(m_all.size()) == m_source->rowCount();
}

void RecentOrder::sortAll(const RecentSort &sort)
{
    const bool namesAreSorted = isSortedByName() && sort.key == RecentSort::Key::Name;
    const bool turn = m_sort.order != sort.order;
    m_sort = sort;
    if (namesAreSorted) {
        if (turn)
            std::reverse(m_all.begin(), m_all.end());
    } else if (sort.key == RecentSort::Key::Name) {
        sortByNames();
    } else {
        m_names.clear();
        m_all = sourceOrder();
        sortByRank();
    }
    putPinnedFirst();
}

// One comparable number per record, beside its slot: records themselves lie far apart in memory.
void RecentOrder::sortByRank()
{
    if (m_sort.key == RecentSort::Key::Time) {
        if (m_sort.order == Qt::AscendingOrder)
            std::reverse(m_all.begin(), m_all.end());
        return;
    }
    const bool bySize = m_sort.key == RecentSort::Key::Size;
    const int direction = m_sort.order == Qt::AscendingOrder ? 1 : -1;
    std::vector<std::pair<qint64, quint32>> ranked;
    ranked.reserve(m_all.size());
    for (const quint32 slot : m_all) {
        ranked.emplace_back(
            bySize ? sizeRank(m_source->recordIn(slot), m_sort.order) : direction * int(kindOf(slot)), slot);
    }
    std::stable_sort(
        ranked.begin(), ranked.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::transform(ranked.cbegin(), ranked.cend(), m_all.begin(), [](const auto &one) { return one.second; });
}

void RecentOrder::sortByNames()
{
    NameOrder order = orderByName(namedSlots());
    m_all = std::move(order.slotsByName);
    m_names = std::move(order.keys);
    if (m_sort.order == Qt::DescendingOrder)
        std::reverse(m_all.begin(), m_all.end());
}

std::vector<NamedSlot> RecentOrder::namedSlots() const
{
    std::vector<NamedSlot> named;
    named.reserve(size_t(m_source->rowCount()));
    for (const quint32 slot : sourceOrder()) {
        const RecentFileInfo &record = m_source->recordIn(slot);
        named.push_back({slot, shownName(record), record.path, record.id});
    }
    return named;
}

void RecentOrder::adopt(NameOrder order, const RecentSort &sort, const std::vector<bool> &touched)
{
    m_sort = sort;
    m_names = std::move(order.keys);
    std::vector<bool> missing(size_t(m_source->slotCount()));
    const std::vector<quint32> present = sourceOrder();
    for (const quint32 slot : present)
        missing[slot] = true;

    m_all.clear();
    for (const quint32 slot : order.slotsByName) {
        const bool usable =
            slot < missing.size() && missing[slot] && !(slot < touched.size() && touched[slot]);
        if (!usable)
            continue;
        m_all.push_back(slot);
        missing[slot] = false;
    }
    if (sort.order == Qt::DescendingOrder)
        std::reverse(m_all.begin(), m_all.end());
    putPinnedFirst();

    const auto sorted = std::ptrdiff_t(m_all.size());
    for (const quint32 slot : present) {
        if (!missing[slot])
            continue;
        m_names.drop(slot); // may be of an earlier name
        learnName(slot);
        m_all.push_back(slot);
    }
    const auto before = [this](quint32 a, quint32 b) { return comesBefore(a, b); };
    std::sort(m_all.begin() + sorted, m_all.end(), before);
    std::inplace_merge(m_all.begin(), m_all.begin() + sorted, m_all.end(), before);
}

void RecentOrder::add(quint32 slot)
{
    forgetName(slot); // of the slot's last owner
    insertSorted(slot);
}

void RecentOrder::clear()
{
    m_all.clear();
    m_names.clear();
    m_kindBytes.clear();
}

void RecentOrder::remove(quint32 slot)
{
    m_all.erase(std::find(m_all.begin(), m_all.end(), slot));
}

void RecentOrder::remove(const std::vector<bool> &marked)
{
    std::erase_if(m_all, [&](quint32 slot) { return marked[slot]; });
}

void RecentOrder::update(quint32 slot, bool renamed)
{
    if (renamed)
        forgetName(slot);
    remove(slot);
    insertSorted(slot);
}

void RecentOrder::insertSorted(quint32 slot)
{
    learnName(slot);
    const auto place = std::partition_point(
        m_all.begin(), m_all.end(), [this, slot](quint32 other) { return comesBefore(other, slot); });
    m_all.insert(place, slot);
}

void RecentOrder::forgetName(quint32 slot)
{
    m_names.drop(slot);
    if (slot < m_kindBytes.size())
        m_kindBytes[slot] = 0;
}

void RecentOrder::learnName(quint32 slot)
{
    if (m_sort.key == RecentSort::Key::Name && !m_names.has(slot))
        m_names.set(slot, shownName(m_source->recordIn(slot)));
}

std::vector<quint32> RecentOrder::sourceOrder() const
{
    std::vector<quint32> order(size_t(m_source->rowCount()));
    for (size_t row = 0; row < order.size(); ++row)
        order[row] = m_source->slotAt(int(row));
    return order;
}

void RecentOrder::putPinnedFirst()
{
    std::stable_partition(
        m_all.begin(), m_all.end(), [this](quint32 slot) { return m_source->recordIn(slot).pinned; });
}

} // namespace zel::recent
