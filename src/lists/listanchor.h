#pragma once

#include <QPersistentModelIndex>

class ListLayout;
class ListModel;

/// The row that a list keeps at its place while others come and go above it: the one at the top edge, unless
/// told otherwise. Places in pixels; `scroll` is how far the list is scrolled. GUI thread.
class ListAnchor
{
public:
    /// Takes the row at the top edge.
    void note(const ListModel &model, const ListLayout &layout, int scroll);
    /// Rows are about to be moved; what the user looks at does not go with them.
    void leave(const ListModel &model, const ListLayout &layout, int scroll, int first, int last);
    /// Rows are about to go; the one after them comes to the place of theirs.
    void give(const ListModel &model, int first, int last);
    void take(const QModelIndex &row, int top); ///< that row, which shows there
    void drop() { m_row = QModelIndex(); }

    bool isValid() const { return m_row.isValid(); }
    int scroll(const ListLayout &layout) const; ///< that puts the row where it was; valid anchors only

    void keep(const ListModel &model, int scroll); ///< by id: all rows are about to be taken away
    /// Likewise once rows are back; 0 when that row is not among them.
    int keptScroll(const ListModel &model, const ListLayout &layout);

private:
    QPersistentModelIndex m_row;
    int m_top = 0; // in the viewport
    QString m_keptId;
    int m_keptTop = 0;
};
