#include "lists/listanchor.h"

#include "lists/listlayout.h"
#include "lists/listmodel.h"

void ListAnchor::note(const ListModel &model, const ListLayout &layout, int scroll)
{
    const int row = layout.rowAtOrAfter(scroll);
    m_row = row >= 0 ? model.index(row) : QModelIndex();
    m_top = layout.rowTop(row) - scroll;
}

// A file that is opened goes to the top of its list: the row beside it stays then.
void ListAnchor::leave(const ListModel &model, const ListLayout &layout, int scroll, int first, int last)
{
    if (m_row.row() < first || m_row.row() > last)
        return;
    const int neighbour = last + 1 < model.rowCount() ? last + 1 : first - 1;
    if (neighbour >= 0)
        take(model.index(neighbour), layout.rowTop(neighbour) - scroll);
}

void ListAnchor::give(const ListModel &model, int first, int last)
{
    if (m_row.row() < first || m_row.row() > last)
        return;
    const int next = model.successorOf(m_row.row(), first, last);
    m_row = next >= 0 ? model.index(next) : QModelIndex();
}

void ListAnchor::take(const QModelIndex &row, int top)
{
    m_row = row;
    m_top = top;
}

int ListAnchor::scroll(const ListLayout &layout) const
{
    return layout.rowTop(m_row.row()) - m_top;
}

void ListAnchor::keep(const ListModel &model, int scroll)
{
    m_keptId = scroll > 0 && m_row.isValid() ? model.idOf(m_row.row()) : QString();
    m_keptTop = m_top;
}

int ListAnchor::keptScroll(const ListModel &model, const ListLayout &layout)
{
    const QString id = std::exchange(m_keptId, {});
    const int row = id.isEmpty() ? -1 : model.rowOf(id);
    return row < 0 ? 0 : layout.rowTop(row) - m_keptTop;
}
