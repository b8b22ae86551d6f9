#pragma once

#include "lists/handle.h"

#include <QHash>
#include <QString>
#include <optional>

namespace zel {

/// The records of a list, found by handle and by id. A plain container for one thread; `Record` has a QString
/// member `id`. A record keeps its handle while it is here; handles that are free again are used first.
template <class Record> class RecordTable
{
public:
    int size() const { return m_handles.size(); }
    std::optional<Handle> handleOf(const QString &id) const
    {
        const auto known = m_handles.constFind(id);
        return known == m_handles.cend() ? std::nullopt : std::optional(*known);
    }
    const Record *find(const QString &id) const ///< null: not here; until the next add()
    {
        const auto handle = handleOf(id);
        return handle ? &m_records[*handle] : nullptr;
    }
    const Record &operator[](Handle handle) const { return m_records[handle]; }
    Record &operator[](Handle handle) { return m_records[handle]; } ///< its id stays the same

    Handle add(const Record &record) ///< its id is new here
    {
        Q_ASSERT(!m_handles.contains(record.id));
        auto handle = Handle(m_records.size());
        if (m_free.empty()) {
            m_records.push_back(record);
        } else {
            handle = m_free.back();
            m_free.pop_back();
            m_records[handle] = record;
        }
        m_handles.insert(record.id, handle);
        return handle;
    }
    void remove(Handle handle)
    {
        m_handles.remove(m_records[handle].id);
        m_records[handle] = {};
        m_free.push_back(handle);
    }
    void clear() { *this = {}; }

private:
    std::vector<Record> m_records; // by handle
    Handles m_free;
    QHash<QString, Handle> m_handles; // by id
};

} // namespace zel
