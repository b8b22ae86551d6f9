#pragma once

#include "lists/handle.h"
#include "lists/listmodel.h"

#include <QVector>

namespace zel {

struct RowDiff;

/// What happened to the records of a list, at once. Of what was changed and inserted the client has the new
/// values already; what is removed can still be read while it goes. What was inserted may be among the
/// changed ones too, what is removed is not.
struct ListDelta
{
    Handles removed;
    Handles inserted;
    Handles changed;
    QVector<int> roles; ///< of the changed ones; empty: any
};

} // namespace zel

/// Rows of records that lie elsewhere, known by their handles: in an order, and those of them that pass a
/// filter. GUI thread. A client keeps the records, answers isBefore() and passes(), and says what happened.
///
/// Rows change precisely: ranges are inserted and removed, a row that moves is moved; only many scattered
/// changes at once come as one layout change beside one removal and one insertion, so that selections survive
/// them and a view does not pay for each. Signals of one change: about rows, sectionsChanged(),
/// countsChanged(). Resets only when reset() is called.
class SortedListModel : public ListModel
{
    Q_OBJECT
public:
    using ListModel::ListModel;

    int rowCount(const QModelIndex &parent = {}) const override; ///< rows that pass the filter
    int totalCount() const override { return m_total; }          ///< of before while a change is being told
    int successorOf(int row, int first, int last) const override;
    zel::ListSections sections() const override { return m_sections; }

    zel::Handle handleAt(int row) const { return m_rows[size_t(row)]; } ///< `row` is in range
    /// -1: the filter hides it. O(log n); O(n) when it is hidden or its change is still to be told.
    int rowOfHandle(zel::Handle handle) const;

protected:
    /// Whether `a` comes before `b`: a total order.
    virtual bool isBefore(zel::Handle a, zel::Handle b) const = 0;
    virtual bool passes(zel::Handle handle) const = 0;
    /// The sections of the first `count` rows, which are in order. At most O(log n): asked for at each
    /// change. Here: one without a header.
    virtual zel::ListSections sectionsOf(int count) const;

    const zel::Handles &inOrder() const { return m_order; } ///< all, also what the filter hides

    void apply(const zel::ListDelta &delta); ///< O(changes * log n), or O(n) for many
    /// dataChanged() of all rows at once: nobody stands elsewhere, but sections may have other titles.
    void applyToAll(const QVector<int> &roles);
    void refreshSections(); ///< sectionsOf() may answer otherwise
    void resort();          ///< isBefore() answers otherwise. O(n log n)
    /// These are all handles, in order; for who sorts faster than by comparing.
    void setOrder(zel::Handles inOrder);
    /// passes() answers otherwise; `narrower`: what was hidden stays so.
    void refilter(bool narrower = false);
    void reset(); ///< no records any more; as a reset of the model

private:
    zel::Handles passing(const zel::Handles &candidates) const;
    int placeOf(const zel::Handles &list, zel::Handle handle) const;
    int targetOf(const zel::Handles &list, int from) const;
    void applyOne(const zel::ListDelta &delta);
    void applyMany(const zel::ListDelta &delta);
    void changeOne(zel::Handle handle);
    void insertRow(zel::Handle handle);
    void moveRow(int row);
    void removeRowRange(int first, int last);
    void insertRowRange(int first, const zel::Handles &rows);
    void show(const zel::Handles &rows);
    void showByRanges(const zel::Handles &rows, const zel::RowDiff &diff);
    void showByLayout(const zel::Handles &rows, const zel::RowDiff &diff);
    void relayout(const zel::Handles &rows, size_t inOrder, LayoutChangeHint hint);
    void renewSections() { renewSections(m_rows.size()); }
    void renewSections(size_t inOrder);
    void tellData(const zel::Handles &handles, const QVector<int> &roles);
    void tellRest();

    zel::Handles m_order; // all
    zel::Handles m_rows;  // those that pass, in the same order
    zel::ListSections m_sections;
    zel::ListSections m_toldSections;
    int m_toldRows = 0;
    int m_total = 0;
};
