#pragma once

#include "widgets/actiontable.h"

#include <QHash>
#include <QModelIndex>
#include <QObject>

class QAction;
class QMenu;
class QWidget;

/// What a list page does when one of its actions is chosen, by key, menu, button or tool bar: all of them
/// come here. An action works on those of the rows that it can work on, and leftOut() tells of the others.
/// GUI thread; owned by its page.
class ListActions : public QObject
{
    Q_OBJECT
public:
    using Rows = QModelIndexList;
    using Can = std::function<bool(const QModelIndex &row)>;
    using Run = std::function<void(const Rows &rows)>; ///< the rows that it can work on; empty: needs none

    /// Makes the actions and adds their keys to the page and to the list of shortcuts. `table` has to live as
    /// long as the process.
    ListActions(const zel::ActionTable &table, QWidget *page);

    /// The part of the page with the rows, where their keys work, and the rows that are meant.
    void setList(QWidget *list, std::function<Rows()> chosenRows);
    void bind(int command, Run run, Can can = {}); ///< without `can`: every row

    /// The one that lives as long as the page: for tool bars, and for whoever enables it.
    QAction *action(int command) const { return m_actions.value(command); }
    /// On how many of these it would run, 0 when it needs none; negative: it would not.
    int rowsFor(int command, const Rows &rows) const;
    bool canRun(int command, const Rows &rows) const { return rowsFor(command, rows) >= 0; }
    void run(int command); ///< on the rows that are meant
    void run(int command, const Rows &rows);
    /// Appends entries that run these commands on `rows` to the menu, with a line between two groups.
    void fill(QMenu *menu, const QVector<int> &commands, const Rows &rows);
    const zel::ActionTable &table() const { return m_table; }

Q_SIGNALS:
    void aboutToRun(int command); ///< with something to work on
    /// After it ran on the others, if there were any.
    void leftOut(int command, const QModelIndexList &rows);

private:
    struct Bound
    {
        Run run;
        Can can;
    };

    const zel::ActionTable &m_table;
    QHash<int, QAction *> m_actions;
    QHash<int, Bound> m_bound;
    std::function<Rows()> m_chosenRows;
};
