#include "recentfile/recentnamekeys.h"

#include "base/namecollator.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace zel::recent {

void RecentNameKeys::set(quint32 slot, const QString &name)
{
    if (!m_collator)
        m_collator = nameCollator();
    if (slot >= m_keys.size())
        m_keys.resize(slot + 1);
    m_keys[slot] = m_collator->sortKey(name);
}

void RecentNameKeys::drop(quint32 slot)
{
    if (slot < m_keys.size())
        m_keys[slot].reset();
}

NameOrder orderByName(const std::vector<NamedSlot> &records, const std::stop_token &stop)
{
    NameOrder result;
    for (const NamedSlot &record : records) {
        if (stop.stop_requested())
            return {};
        result.keys.set(record.slot, record.name);
    }
    std::vector<quint32> places(records.size());
    std::iota(places.begin(), places.end(), 0U);
    std::sort(places.begin(), places.end(), [&](quint32 a, quint32 b) {
        const NamedSlot &x = records[a];
        const NamedSlot &y = records[b];
        const int order = result.keys.compare(x.slot, y.slot);
        return order != 0 ? order < 0 : std::tie(x.path, x.id) < std::tie(y.path, y.id);
    });
    result.slotsByName.reserve(places.size());
    for (const quint32 place : places)
        result.slotsByName.push_back(records[place].slot);
    return result;
}

} // namespace zel::recent
