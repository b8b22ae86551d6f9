// Current row and selection of the recent list.
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QAccessible>
#include <QScrollBar>

using View = ZelBoxRecentFileListView;

QModelIndexList View::selectedRows() const
{
    QModelIndexList rows;
    if (!m_model)
        return rows;
    const QVector<int> numbers = zel::recent::selectedRowNumbers(*selectionModel());
    rows.reserve(numbers.size());
    for (const int row : numbers)
        rows << m_model->index(row);
    return rows;
}

QModelIndex View::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int count = m_model ? m_model->rowCount() : 0;
    if (count == 0)
        return {};
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    return m_model->index(qBound(0, current < 0 ? 0 : clampedRow(action, current), count - 1));
}

int View::clampedRow(CursorAction action, int row) const
{
    const int page = verticalScrollBar()->pageStep() - m_layout.rowHeight();
    const int topOfRow = m_layout.rowTop(row); // both ways a page leads to the furthest row that begins in it
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return row - 1;
    case MoveDown:
    case MoveNext:
        return row + 1;
    case MovePageUp:
        return qMin(row - 1, m_layout.rowAtOrAfter(qMax(0, topOfRow - page + m_layout.rowHeight() - 1)));
    case MovePageDown:
        return qMax(row + 1, m_layout.rowAtOrBefore(topOfRow + page));
    case MoveHome:
        return 0;
    case MoveEnd:
        return m_model->rowCount() - 1;
    case MoveLeft:
    case MoveRight:
        return row;
    }
    return row;
}

// The corners come in any order; QRect::normalized() would take a pixel off each side of swapped ones.
void View::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    const int top = qMin(rect.top(), rect.bottom()) + verticalOffset();
    const int bottom = qMax(rect.top(), rect.bottom()) + verticalOffset();
    const auto [first, last] = m_layout.rowsBetween(top, bottom + 1);
    QItemSelection selection;
    if (first >= 0)
        selection.select(m_model->index(first), m_model->index(last));
    selectionModel()->select(selection, command);
}

QRegion View::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        const QRect rect = visualRect(range.topLeft()) | visualRect(range.bottomRight());
        region += rect & viewport()->rect();
    }
    return region;
}

void View::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    setAttribute(Qt::WA_InputMethodEnabled); // the base class wants it for rows that can be edited only
    updateRow(previous);
    updateRow(current);
    if (QAccessible::isActive() && current.isValid()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(current.row());
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT sigCurrentChanged(current, previous);
}

void View::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QAbstractItemView::selectionChanged(selected, deselected);
    if (QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

// Who removes a row goes on with the next one, as long as nothing else is selected.
void View::leaveRemovedRows(int start, int end)
{
    const auto goes = [start, end](int row) { return row >= start && row <= end; };
    const QItemSelection ranges = selectionModel()->selection();
    const bool selectionGoes = !ranges.isEmpty()
        && std::all_of(ranges.cbegin(), ranges.cend(),
            [&](const QItemSelectionRange &range) { return goes(range.top()) && goes(range.bottom()); });
    const int current = currentIndex().row();
    if (current < 0 || (!goes(current) && !selectionGoes))
        return;
    const int next = !goes(current) ? current : end + 1 < m_model->rowCount() ? end + 1 : start - 1;
    const QItemSelectionModel::SelectionFlags command =
        selectionGoes ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    selectionModel()->setCurrentIndex(m_model->index(next), command);
}
