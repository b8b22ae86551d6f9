#include "lists/namekeys.h"

#include "base/namecollator.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace zel {

void NameKeys::set(Handle handle, const QString &name)
{
    if (!m_collator)
        m_collator = nameCollator();
    if (handle >= m_keys.size())
        m_keys.resize(handle + 1);
    m_keys[handle] = m_collator->sortKey(name);
}

void NameKeys::drop(Handle handle)
{
    if (handle < m_keys.size())
        m_keys[handle].reset();
}

NameOrder orderByName(const std::vector<NamedRecord> &records, const std::stop_token &stop)
{
    NameOrder result;
    for (const NamedRecord &record : records) {
        if (stop.stop_requested())
            return {};
        result.keys.set(record.handle, record.name);
    }
    std::vector<quint32> places(records.size());
    std::iota(places.begin(), places.end(), 0U);
    std::sort(places.begin(), places.end(), [&](quint32 a, quint32 b) {
        const NamedRecord &x = records[a];
        const NamedRecord &y = records[b];
        const int order = result.keys.compare(x.handle, y.handle);
        return order != 0 ? order < 0 : std::tie(x.place, x.id) < std::tie(y.place, y.id);
    });
    result.byName.reserve(places.size());
    for (const quint32 place : places)
        result.byName.push_back(records[place].handle);
    return result;
}

} // namespace zel
