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

void RecentOrder::setSource(const ZelBoxRecentFileModel *source)
{
    clear();
    m_source = source;
}

DocumentKind RecentOrder::kindOf(Handle handle) const
{
    if (handle >= m_kindBytes.size())
        m_kindBytes.resize(size_t(m_source->handleCount()));
    quint8 &known = m_kindBytes[handle];
    if (known == 0)
        known = quint8(documentKind(shownName(m_source->recordIn(handle))));
    return DocumentKind(known);
}

bool RecentOrder::isBefore(Handle a, Handle b) const
{
    const RecentFileInfo &x = m_source->recordIn(a);
    const RecentFileInfo &y = m_source->recordIn(b);
    if (x.pinned != y.pinned)
        return x.pinned;
    const bool ascending = m_sort.order == Qt::AscendingOrder;
    switch (m_sort.key) {
    case ListSort::Key::Time:
        return ascending ? comesBefore(y, x) : comesBefore(x, y);
    case ListSort::Key::Name: {
        const int order = m_names.compare(a, b);
        if (order != 0)
            return ascending ? order < 0 : order > 0;
        const auto [first, second] = ascending ? std::tie(x, y) : std::tie(y, x);
        return std::tie(first.path, first.id) < std::tie(second.path, second.id);
    }
    case ListSort::Key::Size:
        if (const qint64 rank = sizeRank(x, m_sort.order), other = sizeRank(y, m_sort.order); rank != other)
            return rank < other;
        break;
    case ListSort::Key::Type:
        if (kindOf(a) != kindOf(b))
            return (kindOf(a) < kindOf(b)) == ascending;
        break;
    }
    return comesBefore(x, y);
}

bool RecentOrder::isSlow(const ListSort &sort, const Handles &present) const
{
    return sort.key == ListSort::Key::Name && !isByName(present) && m_source->rowCount() > FewNames;
}

bool RecentOrder::isByName(const Handles &present) const
{
    return m_sort.key == ListSort::Key::Name && int(present.size()) == m_source->rowCount();
}

Handles RecentOrder::sorted(const ListSort &sort, const Handles &present)
{
    const bool namesAreSorted = isByName(present) && sort.key == ListSort::Key::Name;
    const bool turn = m_sort.order != sort.order;
    m_sort = sort;
    Handles handles;
    if (namesAreSorted) {
        handles = present;
        if (turn)
            std::reverse(handles.begin(), handles.end());
    } else if (sort.key == ListSort::Key::Name) {
        return adopted(orderByName(namedRecords()), sort, {});
    } else {
        m_names.clear();
        handles = sourceOrder();
        sortByRank(&handles);
    }
    return pinnedFirst(std::move(handles));
}

// One comparable number per record, beside its handle: records themselves lie far apart in memory.
void RecentOrder::sortByRank(Handles *handles) const
{
    if (m_sort.key == ListSort::Key::Time) {
        if (m_sort.order == Qt::AscendingOrder)
            std::reverse(handles->begin(), handles->end());
        return;
    }
    const bool bySize = m_sort.key == ListSort::Key::Size;
    const int direction = m_sort.order == Qt::AscendingOrder ? 1 : -1;
    std::vector<std::pair<qint64, Handle>> ranked;
    ranked.reserve(handles->size());
    for (const Handle handle : *handles) {
        ranked.emplace_back(
            bySize ? sizeRank(m_source->recordIn(handle), m_sort.order) : direction * int(kindOf(handle)),
            handle);
    }
    std::stable_sort(
        ranked.begin(), ranked.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::transform(
        ranked.cbegin(), ranked.cend(), handles->begin(), [](const auto &one) { return one.second; });
}

std::vector<NamedRecord> RecentOrder::namedRecords() const
{
    std::vector<NamedRecord> named;
    named.reserve(size_t(m_source->rowCount()));
    for (const Handle handle : sourceOrder()) {
        const RecentFileInfo &record = m_source->recordIn(handle);
        named.push_back({handle, shownName(record), record.path, record.id});
    }
    return named;
}

Handles RecentOrder::adopted(NameOrder order, const ListSort &sort, const std::vector<bool> &touched)
{
    m_sort = sort;
    m_names = std::move(order.keys);
    const Handles present = sourceOrder();
    std::vector<bool> missing(size_t(m_source->handleCount()));
    for (const Handle handle : present)
        missing[handle] = true;

    Handles handles;
    for (const Handle handle : order.byName) {
        const bool usable =
            handle < missing.size() && missing[handle] && !(handle < touched.size() && touched[handle]);
        if (!usable)
            continue;
        handles.push_back(handle);
        missing[handle] = false;
    }
    if (sort.order == Qt::DescendingOrder)
        std::reverse(handles.begin(), handles.end());
    handles = pinnedFirst(std::move(handles));

    const auto sorted = std::ptrdiff_t(handles.size());
    for (const Handle handle : present) {
        if (!missing[handle])
            continue;
        m_names.set(handle, shownName(m_source->recordIn(handle))); // it may have had another one
        handles.push_back(handle);
    }
    const auto before = [this](Handle a, Handle b) { return isBefore(a, b); };
    std::sort(handles.begin() + sorted, handles.end(), before);
    std::inplace_merge(handles.begin(), handles.begin() + sorted, handles.end(), before);
    return handles;
}

void RecentOrder::learn(Handle handle)
{
    if (m_sort.key == ListSort::Key::Name)
        m_names.set(handle, shownName(m_source->recordIn(handle)));
    if (handle < m_kindBytes.size())
        m_kindBytes[handle] = 0;
}

void RecentOrder::clear()
{
    m_names.clear();
    m_kindBytes.clear();
}

Handles RecentOrder::sourceOrder() const
{
    Handles order(size_t(m_source->rowCount()));
    for (size_t row = 0; row < order.size(); ++row)
        order[row] = m_source->handleAt(int(row));
    return order;
}

Handles RecentOrder::pinnedFirst(Handles handles) const
{
    std::stable_partition(
        handles.begin(), handles.end(), [this](Handle handle) { return m_source->recordIn(handle).pinned; });
    return handles;
}

} // namespace zel::recent
