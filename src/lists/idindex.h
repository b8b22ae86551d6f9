#pragma once

#include "lists/handle.h"

#include <QHash>
#include <QString>
#include <algorithm>
#include <optional>

namespace zel {

/// Finds handles by the ids of their records. A plain container for one thread. The ids stay with the
/// records: who asks hands in how to get at the id of a handle, `idOf(handle)`. A table without nodes,
/// because the first question after 100,000 records were loaded waits for it.
class IdIndex
{
public:
    int size() const { return int(m_count); }
    void clear() { *this = {}; }

    template <class IdOf> std::optional<Handle> find(const QString &id, const IdOf &idOf) const
    {
        const size_t place = m_entries.empty() ? 0 : placeOf(id, hashOf(id), idOf);
        return m_entries.empty() || m_entries[place].isFree() ? std::nullopt
                                                              : std::optional(m_entries[place].handle);
    }
    /// False, and nothing is done, when there is another one with this id.
    template <class IdOf> bool add(const QString &id, Handle handle, const IdOf &idOf)
    {
        return add(id, hashOf(id), handle, idOf);
    }
    /// The same for many, of one id the first. Each would wait for the memory of its place, if that was not
    /// fetched ahead.
    template <class IdOf> void add(const Handles &handles, const IdOf &idOf)
    {
        constexpr size_t Ahead = 12;
        std::vector<uint> hashes(handles.size());
        std::transform(handles.cbegin(), handles.cend(), hashes.begin(),
            [&idOf](Handle handle) { return hashOf(idOf(handle)); });
        makeRoom(m_count + handles.size());
        for (size_t i = 0; i < handles.size(); ++i) {
            if (i + Ahead < hashes.size())
                __builtin_prefetch(&m_entries[hashes[i + Ahead] & mask()], 1);
            add(idOf(handles[i]), hashes[i], handles[i], idOf);
        }
    }
    template <class IdOf> void remove(const QString &id, const IdOf &idOf)
    {
        if (m_entries.empty())
            return;
        size_t hole = placeOf(id, hashOf(id), idOf);
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

    // With a seed Qt takes the processor's own way, which is five times as fast as the one without.
    static uint hashOf(const QString &id) { return qHash(id, 1); }
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
