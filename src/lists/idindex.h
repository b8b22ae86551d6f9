#pragma once

#include "lists/handle.h"

#include <QHash>
#include <QString>
#include <algorithm>
#include <optional>

namespace zel {

/// Finds handles by the ids of their records. A plain container for one thread. The ids stay with the
/// records: who asks hands in how to get at the id of a handle, `idOf(handle)`. A table without nodes,
/// because a page that loads 100,000 records waits for it before it is painted.
class IdIndex
{
public:
    int size() const { return int(m_count); }
    void reserve(int count) { makeRoom(size_t(count)); }
    void clear() { *this = {}; }

    template <class IdOf> std::optional<Handle> find(const QString &id, const IdOf &idOf) const
    {
        const size_t place = m_entries.empty() ? 0 : placeOf(id, qHash(id), idOf);
        return m_entries.empty() || m_entries[place].isFree() ? std::nullopt
                                                              : std::optional(m_entries[place].handle);
    }
    /// False, and nothing is done, when there is another one with this id.
    template <class IdOf> bool add(const QString &id, Handle handle, const IdOf &idOf)
    {
        return add(id, qHash(id), handle, idOf);
    }
    /// The same for who has qHash(id) already, and has said a few ids ago that it comes.
    template <class IdOf> bool add(const QString &id, uint hash, Handle handle, const IdOf &idOf)
    {
        makeRoom(m_count + 1);
        Entry &entry = m_entries[placeOf(id, hash, idOf)];
        if (!entry.isFree())
            return false;
        entry = {hash, handle};
        ++m_count;
        return true;
    }
    /// Fetches the place of an id that is added soon: of many, each would wait for the memory otherwise.
    void expect(uint hash) const
    {
        if (!m_entries.empty())
            __builtin_prefetch(&m_entries[hash & mask()], 1);
    }
    template <class IdOf> void remove(const QString &id, const IdOf &idOf)
    {
        if (m_entries.empty())
            return;
        size_t hole = placeOf(id, qHash(id), idOf);
        if (m_entries[hole].isFree())
            return;
        --m_count;
        // What follows without a gap moves up, unless it would then stand before where its search begins.
        for (size_t next = after(hole); !m_entries[next].isFree(); next = after(next)) {
            const size_t home = m_entries[next].hash & mask();
            if (((next - home) & mask()) < ((next - hole) & mask()))
                continue;
            m_entries[hole] = m_entries[next];
            hole = next;
        }
        m_entries[hole] = {};
    }

private:
    static constexpr Handle None = ~Handle(0);
    struct Entry
    {
        uint hash = 0;
        Handle handle = None;
        bool isFree() const { return handle == None; }
    };

    size_t mask() const { return m_entries.size() - 1; } // the size is a power of two
    size_t after(size_t place) const { return (place + 1) & mask(); }

    /// Where the id is, or the free place where it would be.
    template <class IdOf> size_t placeOf(const QString &id, uint hash, const IdOf &idOf) const
    {
        size_t place = hash & mask();
        while (!m_entries[place].isFree()
            && (m_entries[place].hash != hash || idOf(m_entries[place].handle) != id))
            place = after(place);
        return place;
    }
    void makeRoom(size_t count) ///< at least half of the places stay free
    {
        size_t size = std::max<size_t>(m_entries.size(), 16);
        while (size < count * 2)
            size *= 2;
        if (size == m_entries.size())
            return;
        std::vector<Entry> old(size);
        old.swap(m_entries);
        for (const Entry &entry : old) {
            if (entry.isFree())
                continue;
            size_t place = entry.hash & mask();
            while (!m_entries[place].isFree())
                place = after(place);
            m_entries[place] = entry;
        }
    }

    std::vector<Entry> m_entries;
    size_t m_count = 0;
};

} // namespace zel
