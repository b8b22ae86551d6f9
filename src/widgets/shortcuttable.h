#pragma once

#include "widgets/actiontable.h"
#include "widgets/shortcuts.h"

namespace zel {

/// One row of the table of shortcuts: everything but the user's changes. A value.
struct ShortcutRow
{
    const char *id;
    ShortcutGroup group;
    const char *text; ///< source text of `context`; "%1" stands for the page's name
    QKeySequence standard;
    const char *page = nullptr; ///< source text of the context "Navigation"
    bool changeable = false;
    const char *heading = nullptr; ///< of the group, where that is one page's; source text of `context`
    const char *context = "Shortcuts";
    QList<QKeySequence> more = {}; ///< other keys that do the same and are not shown
};

const QVector<ShortcutRow> &shortcutTable();
/// The actions of a page that have keys, once: a table that is there already changes nothing.
void addToShortcutTable(const ActionTable &table);

} // namespace zel
