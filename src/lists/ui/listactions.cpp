#include "lists/ui/listactions.h"

#include "widgets/shortcuts.h"

#include <QAction>
#include <QPersistentModelIndex>
#include <QWidget>
#include <algorithm>

using zel::ActionKeys;
using zel::ActionNeeds;
using zel::ActionRow;

ListActions::ListActions(const zel::ActionTable &table, QWidget *page) : QObject(page), m_table(table)
{
    for (const ActionRow &row : table.rows) {
        QAction *action = table.make(row.command, this);
        if (row.where == ActionKeys::OfList)
            action->setShortcuts(QList<QKeySequence>());
        connect(action, &QAction::triggered, this, [this, command = row.command] { run(command); });
        m_actions.insert(row.command, action);
        if (row.where == ActionKeys::InPage)
            page->addAction(action);
    }
    zel::Shortcuts::addPage(table);
}

// Else Delete in another part of the page would remove documents.
void ListActions::setList(QWidget *list, std::function<Rows()> chosenRows)
{
    m_chosenRows = std::move(chosenRows);
    for (const ActionRow &row : m_table.rows) {
        if (row.where == ActionKeys::InList)
            list->addAction(action(row.command));
    }
}

void ListActions::bind(int command, Run run, Can can)
{
    m_bound.insert(command, {std::move(run), std::move(can)});
}

int ListActions::rowsFor(int command, const Rows &rows) const
{
    const auto bound = m_bound.constFind(command);
    if (bound == m_bound.cend() || !action(command)->isEnabled())
        return -1;
    const ActionNeeds needs = m_table.row(command).needs;
    if (needs == ActionNeeds::Nothing)
        return 0;
    if (needs == ActionNeeds::OneRow && rows.size() != 1)
        return -1;
    const auto able = bound->can ? std::count_if(rows.cbegin(), rows.cend(), bound->can) : rows.size();
    return able > 0 ? int(able) : -1;
}

void ListActions::run(int command)
{
    const bool needsRows = m_table.row(command).needs != ActionNeeds::Nothing;
    run(command, needsRows && m_chosenRows ? m_chosenRows() : Rows());
}

void ListActions::run(int command, const Rows &rows)
{
    const auto bound = m_bound.constFind(command);
    if (bound == m_bound.cend() || !action(command)->isEnabled())
        return;
    const ActionNeeds needs = m_table.row(command).needs;
    if ((needs == ActionNeeds::Rows && rows.isEmpty()) || (needs == ActionNeeds::OneRow && rows.size() != 1))
        return;
    Rows able;
    Rows others;
    for (const QModelIndex &row : needs == ActionNeeds::Nothing ? Rows() : rows)
        (!bound->can || bound->can(row) ? able : others) << row;
    const QVector<QPersistentModelIndex> kept(others.cbegin(), others.cend()); // what runs may move them
    if (needs == ActionNeeds::Nothing || !able.isEmpty()) {
        Q_EMIT aboutToRun(command);
        if (bound->run)
            bound->run(able);
    }
    others = Rows(kept.cbegin(), kept.cend());
    if (!others.isEmpty())
        Q_EMIT leftOut(command, others);
}

void ListActions::fill(QMenu *menu, const QVector<int> &commands, const Rows &rows)
{
    const QVector<QPersistentModelIndex> kept(rows.cbegin(), rows.cend()); // the menu is open for a while
    m_table.fill(
        menu, commands, [&](int command) { return rowsFor(command, rows); },
        [this, kept](int command) {
            Rows still;
            for (const QPersistentModelIndex &row : kept) {
                if (row.isValid())
                    still << row;
            }
            run(command, still);
        });
}
