#pragma once

#include "krecentfile.h"
#include "lists/idindex.h"

#include <vector>

namespace zel::recent {

/// The order of the rows: newest first, equal times by id. Never true both ways.
bool comesBefore(const RecentFileInfo &a, const RecentFileInfo &b);

/// The records of the list, newest first (equal times by id), found by row and by id. Plain container, one
/// thread. Records never move in memory: a row is a number into them, so adding to or removing from the
/// middle of 100,000 rows shifts numbers only.
class RecordsByTime
{
public:
    /// Replaces everything. Sorts when needed. Each record has an id of its own. O(n).
    void assign(RecordInfoList records);
    void clear();

    int size() const { return int(m_order.size()); }
    const RecentFileInfo &at(int row) const { return m_records.at(int(m_order[size_t(row)])); }
    /// The number of a row's record: stays the same while the record is here, wherever its row moves.
    Handle handleAt(int row) const { return m_order[size_t(row)]; }
    int handleCount() const { return m_records.size(); } ///< above every handle in use
    const RecentFileInfo &withHandle(Handle handle) const { return m_records.at(int(handle)); }
    int rowOfHandle(Handle handle) const { return placeFor(withHandle(handle)); } ///< it is in use

    int rowOf(const QString &id) const; ///< -1 when there is none; O(log n), the first after assign() O(n)
    int placeFor(const RecentFileInfo &record) const; ///< row before which the order puts it; O(log n)

    void insert(int row, const RecentFileInfo &record); ///< `row` from placeFor(); its id must be new
    void remove(int first, int count);
    /// Replaces the record of row `from` by one of the same id and puts it before row `place` (in the numbers
    /// of before; `from` leaves it where it is). Returns its new row.
    int replace(int from, int place, const RecentFileInfo &record);
    void setUnread(int row, int mark) { m_records[int(m_order[size_t(row)])].unread = mark; }

private:
    void sortOrder();
    IdIndex &index() const;
    auto idOf() const
    {
        return [this](Handle handle) -> const QString & { return m_records.at(int(handle)).id; };
    }

    RecordInfoList m_records;
    Handles m_order; // row -> handle
    Handles m_free;  // handles that can be used again
    // Made when it is asked for first: a list that is loaded is painted before anybody looks for an id.
    mutable std::optional<IdIndex> m_index;
};

} // namespace zel::recent
