#pragma once

#include "lists/listsort.h"
#include "lists/ui/rowcell.h"

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

    /// What the name is called, and the columns of the rows beside it, from left to right. Once.
    void setName(const QString &title);
    void addColumn(RowColumn column, const QString &title);
    void setSort(const zel::ListSort &sort); ///< shows it; emits nothing
    void follow(
        QAbstractScrollArea *list); ///< that they stand above; before, they are as wide as it would be

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Another key comes in its usual direction, the same one turns.
    void sortChosen(const zel::ListSort &sort);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ColumnHeading *addHeading(zel::ListSort::Key key, const QString &title);
    void choose(const ColumnHeading &heading);
    bool step(int from, int key);
    QRect rowArea() const;
    void place();

    QVector<ColumnHeading *> m_headings; // of the name first
    RowColumns m_columns;
    QAbstractScrollArea *m_list = nullptr;
    zel::ListSort m_sort;
};
