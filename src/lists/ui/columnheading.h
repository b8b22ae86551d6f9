#pragma once

#include "widgets/listsortmenu.h"

#include <QAbstractButton>

/// One of the headings above a list with columns; see ColumnHeadings. GUI thread.
class ColumnHeading : public QAbstractButton
{
    Q_OBJECT
public:
    ColumnHeading(int key, ListSortMenu::Kind kind, const QString &title, QWidget *parent);

    int key() const { return m_key; }
    ListSortMenu::Kind kind() const { return m_kind; }
    /// Whether the list is sorted by it, and how.
    void setSorted(bool sorted, Qt::SortOrder order);
    void setAtEnd(bool atEnd); ///< its text ends where the numbers below do

    QSize sizeHint() const override;
    static int sidePadding(); ///< from its edge to its text

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    int m_key;
    ListSortMenu::Kind m_kind;
    bool m_sorted = false;
    bool m_atEnd = false;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
