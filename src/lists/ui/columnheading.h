#pragma once

#include "lists/listsort.h"

#include <QAbstractButton>

/// One of the headings above a list with columns; see ColumnHeadings. GUI thread.
class ColumnHeading : public QAbstractButton
{
    Q_OBJECT
public:
    ColumnHeading(zel::ListSort::Key key, const QString &title, QWidget *parent);

    zel::ListSort::Key key() const { return m_key; }
    /// Whether the list is sorted by it, and how.
    void setSorted(bool sorted, Qt::SortOrder order);
    void setAtEnd(bool atEnd); ///< its text ends where the numbers below do

    QSize sizeHint() const override;
    static int sidePadding(); ///< from its edge to its text

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    const zel::ListSort::Key m_key;
    bool m_sorted = false;
    bool m_atEnd = false;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
