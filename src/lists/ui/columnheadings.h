#pragma once

#include "lists/ui/rowcell.h"
#include "widgets/listsortmenu.h"

#include <QWidget>

class ColumnHeading;
class QAbstractScrollArea;

/// The headings above a list with columns: they stand where the rows have theirs, show its order, and change
/// it: by click, or by Space or Enter; Left and Right go from one to the next. Where rows are too narrow for
/// columns they stand side by side. GUI thread.
class ColumnHeadings : public QWidget
{
    Q_OBJECT
public:
    explicit ColumnHeadings(QWidget *parent = nullptr);

    /// What the name is called, and the columns of the rows beside it, from left to right. `key` is the
    /// page's own number of what the list is then sorted by. Once.
    void setName(int key, const QString &title);
    void addColumn(RowColumn column, int key, const QString &title);
    void setSort(int key, Qt::SortOrder order); ///< shows it; emits nothing
    void follow(
        QAbstractScrollArea *list); ///< that they stand above; before, they are as wide as it would be

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Another key comes in its usual direction, the same one turns.
    void chosen(int key, Qt::SortOrder order);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ColumnHeading *addHeading(int key, ListSortMenu::Kind kind, const QString &title);
    void choose(const ColumnHeading &heading);
    bool step(int from, int key);
    QRect rowArea() const;
    void place();

    QVector<ColumnHeading *> m_headings; // of the name first
    RowColumns m_columns;
    QAbstractScrollArea *m_list = nullptr;
    int m_key = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
