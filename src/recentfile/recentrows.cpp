#include "recentfile/recentrows.h"

#include <algorithm>
#include <numeric>

namespace zel::recent {

bool comesBefore(const RecentFileInfo &a, const RecentFileInfo &b)
{
    return a.lastAccess != b.lastAccess ? a.lastAccess > b.lastAccess : a.id < b.id;
}

void RecentRows::assign(RecordInfoList records)
{
    clear();
    m_slots = std::move(records);
    m_order.resize(size_t(m_slots.size()));
    std::iota(m_order.begin(), m_order.end(), 0U);
    sortOrder();
    dropDuplicates();
}

void RecentRows::clear()
{
    m_slots.clear();
    m_order.clear();
    m_free.clear();
    m_slotOf.clear();
}

// The store hands out sorted records, so this is one pass of comparisons as a rule.
void RecentRows::sortOrder()
{
    const RecordInfoList &records = m_slots;
    const auto less = [&records](quint32 a, quint32 b) {
        return comesBefore(records.at(int(a)), records.at(int(b)));
    };
    if (!std::is_sorted(m_order.cbegin(), m_order.cend(), less))
        std::sort(m_order.begin(), m_order.end(), less);
}

void RecentRows::dropDuplicates()
{
    m_slotOf.reserve(int(m_order.size()));
    const auto unwanted = [this](quint32 slot) {
        const QString &id = m_slots.at(int(slot)).id;
        if (id.isEmpty())
            return true;
        quint32 &known = m_slotOf[id];
        if (known != 0) // slot + 1, so that 0 means "new"
            return true;
        known = slot + 1;
        return false;
    };
    std::vector<quint32> kept;
    kept.reserve(m_order.size());
    for (const quint32 slot : m_order) {
        if (unwanted(slot))
            m_free.push_back(slot);
        else
            kept.push_back(slot);
    }
    m_order = std::move(kept);
}

int RecentRows::rowOf(const QString &id) const
{
    const quint32 known = m_slotOf.value(id);
    return known == 0 ? -1 : placeFor(m_slots.at(int(known - 1)));
}

int RecentRows::placeFor(const RecentFileInfo &record) const
{
    const auto place = std::partition_point(m_order.cbegin(), m_order.cend(),
        [&](quint32 slot) { return comesBefore(m_slots.at(int(slot)), record); });
    return int(place - m_order.cbegin());
}

void RecentRows::insert(int row, const RecentFileInfo &record)
{
    Q_ASSERT(!m_slotOf.contains(record.id));
    quint32 slot = quint32(m_slots.size());
    if (m_free.empty()) {
        m_slots.append(record);
    } else {
        slot = m_free.back();
        m_free.pop_back();
        m_slots[int(slot)] = record;
    }
    m_slotOf.insert(record.id, slot + 1);
    m_order.insert(m_order.begin() + row, slot);
}

void RecentRows::remove(int first, int count)
{
    if (count == size()) {
        clear();
        return;
    }
    const auto begin = m_order.begin() + first;
    for (auto it = begin; it != begin + count; ++it) {
        m_slotOf.remove(m_slots.at(int(*it)).id);
        m_slots[int(*it)] = {};
        m_free.push_back(*it);
    }
    m_order.erase(begin, begin + count);
}

int RecentRows::replace(int from, int place, const RecentFileInfo &record)
{
    m_slots[int(m_order[size_t(from)])] = record;
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
