#include "recentfile/recordsbytime.h"

#include <algorithm>
#include <numeric>

namespace zel::recent {

bool comesBefore(const RecentFileInfo &a, const RecentFileInfo &b)
{
    return a.lastAccess != b.lastAccess ? a.lastAccess > b.lastAccess : a.id < b.id;
}

void RecordsByTime::assign(RecordInfoList records)
{
    clear();
    m_records = std::move(records);
    m_order.resize(size_t(m_records.size()));
    std::iota(m_order.begin(), m_order.end(), 0U);
    sortOrder();
}

void RecordsByTime::clear()
{
    m_records = {}; // QVector::clear() would copy the list that the store shares before it empties it
    m_order.clear();
    m_free.clear();
    m_index.reset();
}

// The store hands out sorted records, so this is one pass of comparisons as a rule.
void RecordsByTime::sortOrder()
{
    const RecordInfoList &records = m_records;
    const auto less = [&records](
                          Handle a, Handle b) { return comesBefore(records.at(int(a)), records.at(int(b))); };
    if (!std::is_sorted(m_order.cbegin(), m_order.cend(), less))
        std::sort(m_order.begin(), m_order.end(), less);
}

IdIndex &RecordsByTime::index() const
{
    if (!m_index)
        m_index.emplace().add(m_order, idOf());
    return *m_index;
}

int RecordsByTime::rowOf(const QString &id) const
{
    const auto handle = id.isEmpty() ? std::nullopt : index().find(id, idOf());
    return handle ? placeFor(m_records.at(int(*handle))) : -1;
}

int RecordsByTime::placeFor(const RecentFileInfo &record) const
{
    const auto place = std::partition_point(m_order.cbegin(), m_order.cend(),
        [&](Handle handle) { return comesBefore(m_records.at(int(handle)), record); });
    return int(place - m_order.cbegin());
}

void RecordsByTime::insert(int row, const RecentFileInfo &record)
{
    IdIndex &ids = index(); // of before
    Handle handle = Handle(m_records.size());
    if (m_free.empty()) {
        m_records.append(record);
    } else {
        handle = m_free.back();
        m_free.pop_back();
        m_records[int(handle)] = record;
    }
    ids.add(record.id, handle, idOf());
    m_order.insert(m_order.begin() + row, handle);
}

void RecordsByTime::remove(int first, int count)
{
    if (count == size()) {
        clear();
        return;
    }
    const auto begin = m_order.begin() + first;
    for (auto it = begin; it != begin + count; ++it) {
        if (m_index)
            m_index->remove(m_records.at(int(*it)).id, idOf());
        m_records[int(*it)] = {};
        m_free.push_back(*it);
    }
    m_order.erase(begin, begin + count);
}

int RecordsByTime::replace(int from, int place, const RecentFileInfo &record)
{
    m_records[int(m_order[size_t(from)])] = record;
    const auto begin = m_order.begin();
    if (place > from + 1) {
        std::rotate(begin + from, begin + from + 1, begin + place);
        return place - 1;
    }
    if (place < from)
        std::rotate(begin + place, begin + from, begin + from + 1);
    return std::min(place, from);
}

} // namespace zel::recent
