#pragma once

#include "widgets/shortcuts.h"

namespace zel {

/// One row of the table of shortcuts: everything but the user's changes. A value.
struct ShortcutRow
{
    const char *id;
    ShortcutGroup group;
    const char *text; ///< source text of the context "Shortcuts"; "%1" stands for the page's name
    QKeySequence standard;
    const char *page = nullptr; ///< source text of the context "Navigation"
    bool changeable = false;
};

const QVector<ShortcutRow> &shortcutTable();

} // namespace zel
