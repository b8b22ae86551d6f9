#pragma once

#include "lists/listsort.h"
#include "lists/namekeys.h"
#include "recentfile/documentkind.h"

class ZelBoxRecentFileModel;

namespace zel::recent {

/// Compares and sorts the records of a model; pinned ones come first. GUI thread. Equal records stand newest
/// first, so the order is total. Keeps what comparing needs of each record: whoever owns it says what came
/// and what has another name.
class RecentOrder
{
public:
    void setSource(const ZelBoxRecentFileModel *source);

    const ListSort &sort() const { return m_sort; }
    bool isBefore(Handle a, Handle b) const; ///< both are known
    DocumentKind kindOf(Handle handle) const;

    /// All records by `sort`, which holds from now on; `present` are those that were sorted last. By name O(n
    /// log n), but only O(n) when just the direction is another; else O(n) or little more.
    Handles sorted(const ListSort &sort, const Handles &present);
    /// True when sorted() would hold up the screen, so that namedRecords() are better sorted elsewhere.
    bool isSlow(const ListSort &sort, const Handles &present) const;
    std::vector<NamedRecord> namedRecords() const;
    /// The same from an order by name of what namedRecords() gave. Records that came or changed their name
    /// since, which `touched` says (by handle; it may be short), are sorted in.
    Handles adopted(NameOrder order, const ListSort &sort, const std::vector<bool> &touched);

    void learn(Handle handle); ///< its record is new, or has another name
    void clear();

private:
    bool isByName(const Handles &present) const;
    void sortByRank(Handles *handles) const;
    Handles sourceOrder() const;
    Handles pinnedFirst(Handles handles) const;

    const ZelBoxRecentFileModel *m_source = nullptr;
    ListSort m_sort;
    NameKeys m_names;                        // only while sorted by name
    mutable std::vector<quint8> m_kindBytes; // by handle, 0: not looked at yet
};

} // namespace zel::recent
