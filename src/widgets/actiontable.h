#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QVector>
#include <functional>

class QAction;
class QMenu;
class QObject;

namespace zel {

/// How many rows of its list an action is for.
enum class ActionNeeds { Nothing, OneRow, Rows };

/// Where the keys of an action work.
enum class ActionKeys {
    InList, ///< the keyboard is on the rows
    InPage,
    OfList, ///< the list itself knows them; they are only shown
};

/// One thing that can be done on a page, as its menus, keys, tool tips and the list of shortcuts show it.
/// Everything but what it does. A value; texts are source texts of the table's context.
struct ActionRow
{
    int command = 0;            ///< the page's number
    const char *id;             ///< "recent.open"; object name, and in the list of shortcuts
    const char *text;           ///< of the menu entry
    const char *icon = nullptr; ///< of resources/icons/svg, without the folder and suffix
    QList<QKeySequence> keys;   ///< the first is the one that is shown
    ActionNeeds needs = ActionNeeds::Rows;
    int group = 0; ///< menus have a line between two groups
    ActionKeys where = ActionKeys::InList;
    const char *explained = nullptr; ///< where the entry's text alone says too little; null: like it
    const char *several = nullptr;   ///< of the entry for more rows than one, with %Ln; null: like it
};

/// The actions of one page, in the order of menus and of the list of shortcuts. Lives as long as the process.
struct ActionTable
{
    const char *context; ///< of the translations
    const char *heading; ///< of the page in the list of shortcuts; source text
    QVector<ActionRow> rows;

    const ActionRow &row(int command) const;        ///< which has to be there
    QString text(int command, int count = 1) const; ///< translated; for so many rows
    QString explained(int command) const;           ///< likewise; for tool tips, with the keys: toolTip()
    QString toolTip(int command) const;             ///< "Refresh (F5)"

    /// An action that looks like it and does nothing yet; its keys are shown, and work where it is added.
    QAction *make(int command, QObject *parent) const;
    /// Appends entries for these commands, with a line between two groups. `chosen` runs when one is;
    /// `rowsFor` says on how many rows it would, negative: it is not possible now.
    void fill(QMenu *menu, const QVector<int> &commands, const std::function<int(int command)> &rowsFor,
        const std::function<void(int command)> &chosen) const;
};

} // namespace zel
