#include "widgets/shortcuttable.h"

#include <QtGlobal>
#include <algorithm>

namespace zel {
namespace {

using Group = ShortcutGroup;

// What is not changeable stands here as the widgets have it; whoever changes a key there changes it here. The
// actions of pages come from their own tables.
QVector<ShortcutRow> makeTable()
{
    const auto keys = [](const char *text) { return QKeySequence(QLatin1String(text)); };
    const auto page = [&](const char *id, const char *number, const char *name) {
        return ShortcutRow{
            id, Group::Pages, QT_TRANSLATE_NOOP("Shortcuts", "Go to %1"), keys(number), name, true};
    };
    return {
        {"window.search", Group::MainWindow, QT_TRANSLATE_NOOP("Shortcuts", "Search"), keys("Ctrl+F"),
            nullptr, true},
        {"window.settings", Group::MainWindow, QT_TRANSLATE_NOOP("Shortcuts", "Settings"), keys("Ctrl+,"),
            nullptr, true},
        {"window.menu", Group::MainWindow, QT_TRANSLATE_NOOP("Shortcuts", "Main menu"), keys("F10"), nullptr,
            true},
        {"window.close", Group::MainWindow, QT_TRANSLATE_NOOP("Shortcuts", "Close window"), keys("Ctrl+W"),
            nullptr, true},
        {"window.exit", Group::MainWindow, QT_TRANSLATE_NOOP("Shortcuts", "Exit"), keys("Ctrl+Q"), nullptr,
            true},
        page("page.1", "Ctrl+1", QT_TRANSLATE_NOOP("Navigation", "Recent")),
        page("page.2", "Ctrl+2", QT_TRANSLATE_NOOP("Navigation", "Cloud documents")),
        page("page.3", "Ctrl+3", QT_TRANSLATE_NOOP("Navigation", "Team folders")),
        page("page.4", "Ctrl+4", QT_TRANSLATE_NOOP("Navigation", "Messages")),
        page("page.5", "Ctrl+5", QT_TRANSLATE_NOOP("Navigation", "File radar")),
        page("page.6", "Ctrl+6", QT_TRANSLATE_NOOP("Navigation", "Channels")),
        page("page.7", "Ctrl+7", QT_TRANSLATE_NOOP("Navigation", "Desktop sync")),
        {"pages.next", Group::Pages, QT_TRANSLATE_NOOP("Shortcuts", "Next page"), keys("Ctrl+PgDown")},
        {"pages.previous", Group::Pages, QT_TRANSLATE_NOOP("Shortcuts", "Previous page"), keys("Ctrl+PgUp")},
        {"list.select", Group::Lists, QT_TRANSLATE_NOOP("Shortcuts", "Select or clear the row"),
            keys("Space")},
        {"list.selectall", Group::Lists, QT_TRANSLATE_NOOP("Shortcuts", "Select all"), keys("Ctrl+A")},
        {"list.menu", Group::Lists, QT_TRANSLATE_NOOP("Shortcuts", "Menu of the row"), keys("Shift+F10")},
        {"mini.open", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Open"), keys("Return")},
        {"mini.folder", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Open folder"),
            keys("Ctrl+Return")},
        {"mini.hide", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Empty the search field, or hide"),
            keys("Esc")},
        {"mini.left", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Dock to the left edge"),
            keys("Alt+Left")},
        {"mini.right", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Dock to the right edge"),
            keys("Alt+Right")},
        {"mini.top", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Dock to the top edge"),
            keys("Alt+Up")},
        {"mini.free", Group::MiniWindow, QT_TRANSLATE_NOOP("Shortcuts", "Leave the edge"), keys("Alt+Down")},
    };
}

// Qt's own catalogues translate some names of keys and leave others as they stand on the keys. These are the
// ones that the box shows: a catalogue of ours gives them names of one kind.
[[maybe_unused]] constexpr const char *KeyNames[] = {
    QT_TRANSLATE_NOOP("QShortcut", "Return"),
    QT_TRANSLATE_NOOP("QShortcut", "Enter"),
    QT_TRANSLATE_NOOP("QShortcut", "Space"),
    QT_TRANSLATE_NOOP("QShortcut", "Backspace"),
    QT_TRANSLATE_NOOP("QShortcut", "Left"),
    QT_TRANSLATE_NOOP("QShortcut", "Right"),
    QT_TRANSLATE_NOOP("QShortcut", "Up"),
    QT_TRANSLATE_NOOP("QShortcut", "Down"),
};

QVector<ShortcutRow> &table()
{
    static QVector<ShortcutRow> rows = makeTable();
    return rows;
}

} // namespace

const QVector<ShortcutRow> &shortcutTable()
{
    return table();
}

void addToShortcutTable(const ActionTable &actions)
{
    QVector<ShortcutRow> &all = table();
    const auto has = [&](const char *id) {
        return std::any_of(all.cbegin(), all.cend(),
            [id](const ShortcutRow &row) { return QLatin1String(row.id) == QLatin1String(id); });
    };
    auto place = std::find_if(
        all.begin(), all.end(), [](const ShortcutRow &row) { return row.group > Group::ListPage; });
    int at = int(place - all.begin());
    for (const ActionRow &row : actions.rows) {
        if (row.keys.isEmpty() || has(row.id))
            continue;
        all.insert(at++,
            {row.id, Group::ListPage, row.explained ? row.explained : row.text, row.keys.constFirst(),
                nullptr, false, actions.heading, actions.context, row.keys.mid(1)});
    }
}

} // namespace zel
