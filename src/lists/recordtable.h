#pragma once

#include "lists/idindex.h"

namespace zel {

/// The records of a list, found by handle and by id. A plain container for one thread; `Record` has a QString
/// member `id`. A record keeps its handle while it is here; handles that are free again are used first.
template <class Record> class RecordTable
{
    auto idOf() const
    {
        return [this](Handle handle) -> const QString & { return m_records[handle].id; };
    }

public:
    int size() const { return m_index.size(); }
    std::optional<Handle> handleOf(const QString &id) const { return m_index.find(id, idOf()); }
    const Record *find(const QString &id) const ///< null: not here; until the next add()
    {
        const auto handle = handleOf(id);
        return handle ? &m_records[*handle] : nullptr;
    }
    const Record &operator[](Handle handle) const { return m_records[handle]; }
    Record &operator[](Handle handle) { return m_records[handle]; } ///< its id stays the same

    Handle add(const Record &record) ///< its id is new here
    {
        auto handle = Handle(m_records.size());
        if (m_free.empty()) {
            m_records.push_back(record);
        } else {
            handle = m_free.back();
            m_free.pop_back();
            m_records[handle] = record;
        }
        const bool fresh = m_index.add(record.id, handle, idOf());
        Q_ASSERT(fresh);
        Q_UNUSED(fresh)
        return handle;
    }
    void remove(Handle handle)
    {
        m_index.remove(m_records[handle].id, idOf());
        m_records[handle] = {};
        m_free.push_back(handle);
    }
    void clear() { *this = {}; }

private:
    std::vector<Record> m_records; // by handle
    Handles m_free;
    IdIndex m_index;
};

} // namespace zel
