#pragma once

#include <QPersistentModelIndex>
#include <QPoint>

class QMouseEvent;

/// Which click, double click or drag a press of the mouse becomes. GUI thread.
///
/// A double click is one thing, without a click on top of it when the button comes up. When the list has
/// moved in between, its second half meets a row that the first was not for, and is a first one then. So it
/// is while rows are being picked.
class ListPress
{
public:
    void begin(const QMouseEvent &event, const QModelIndex &row); ///< invalid: not on a row, or on a button
    void beginSecondHalf() { m_endsDoubleClick = true; }
    bool endsDoubleClick() { return std::exchange(m_endsDoubleClick, false); }
    void forget() { m_row = QModelIndex(); }

    const QPersistentModelIndex &row() const { return m_row; }
    bool isSecondHalf(const QMouseEvent &event, const QModelIndex &row) const;
    bool isDrag(const QMouseEvent &event) const; ///< the left button has gone far enough

    static bool picksRows(const QMouseEvent &event); ///< with Ctrl or Shift

private:
    QPersistentModelIndex m_row;
    QPoint m_pos;
    bool m_endsDoubleClick = false;
};
