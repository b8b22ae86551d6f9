#pragma once

#include "recentfile/recentfilter.h"
#include "recentfile/recentnamekeys.h"

#include <vector>

class ZelBoxRecentFileModel;
struct RecentFileInfo;

namespace zel::recent {

/// All records of a model in a chosen order, pinned ones first, as slots. GUI thread. Tells nobody anything:
/// whoever owns it follows the model and calls it. Equal records stand newest first, so the order is total.
class RecentOrder
{
public:
    void setSource(const ZelBoxRecentFileModel *source) { m_source = source; }

    const RecentSort &sort() const { return m_sort; }
    const std::vector<quint32> &all() const { return m_all; }

    /// Sorts anew. By name O(n log n), but only O(n) when just the direction is another; else O(n) or little
    /// more.
    void sortAll(const RecentSort &sort);
    /// True when sortAll() would hold up the screen, so that namedSlots() is better sorted elsewhere.
    bool isSlow(const RecentSort &sort) const;
    std::vector<NamedSlot> namedSlots() const;
    /// Takes over an order by name of what namedSlots() gave. Records that came or changed name since are
    /// found by what `touched` says (by slot; it may be short) and sorted in.
    void adopt(NameOrder order, const RecentSort &sort, const std::vector<bool> &touched);

    bool comesBefore(quint32 a, quint32 b) const; ///< both have a row; their names' keys are known
    DocumentKind kindOf(quint32 slot) const;

    void add(quint32 slot);
    void clear();
    void remove(quint32 slot);
    void remove(const std::vector<bool> &marked); ///< by slot
    /// The record has changed: its place or, `renamed`, also what is known of its name.
    void update(quint32 slot, bool renamed);

private:
    bool isSortedByName() const;
    void sortByRank();
    void sortByNames();
    void forgetName(quint32 slot);
    void learnName(quint32 slot);
    void insertSorted(quint32 slot);
    std::vector<quint32> sourceOrder() const;
    void putPinnedFirst();

    const ZelBoxRecentFileModel *m_source = nullptr;
    RecentSort m_sort;
    std::vector<quint32> m_all;
    RecentNameKeys m_names;                  // only while sorted by name
    mutable std::vector<quint8> m_kindBytes; // by slot, 0: not looked at yet
};

} // namespace zel::recent
