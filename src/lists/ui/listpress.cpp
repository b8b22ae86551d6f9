#include "lists/ui/listpress.h"

#include <QApplication>
#include <QMouseEvent>

void ListPress::begin(const QMouseEvent &event, const QModelIndex &row)
{
    m_endsDoubleClick = false;
    m_pos = event.pos();
    m_row = row;
}

bool ListPress::isSecondHalf(const QMouseEvent &event, const QModelIndex &row) const
{
    return row.isValid() && m_row == row && !picksRows(event);
}

bool ListPress::isDrag(const QMouseEvent &event) const
{
    return event.buttons() == Qt::LeftButton
        && (event.pos() - m_pos).manhattanLength() > QApplication::startDragDistance();
}

bool ListPress::picksRows(const QMouseEvent &event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
}
