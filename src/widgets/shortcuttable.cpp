#include "widgets/shortcuttable.h"

#include <QtGlobal>

namespace zel {
namespace {

using Group = ShortcutGroup;

// What is not changeable stands here as the widgets have it; whoever changes a key there changes it here.
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
        {"recent.open", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Open"), keys("Return")},
        {"recent.folder", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Open folder"),
            keys("Ctrl+Return")},
        {"recent.copy", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Copy"), keys("Ctrl+C")},
        {"recent.remove", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Remove from the list"),
            keys("Del")},
        {"recent.delete", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Delete file"),
            keys("Shift+Del")},
        {"recent.select", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Select or clear the row"),
            keys("Space")},
        {"recent.selectall", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Select all"), keys("Ctrl+A")},
        {"recent.menu", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Menu of the row"),
            keys("Shift+F10")},
        {"recent.undo", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Undo the last removal"),
            keys("Ctrl+Z")},
        {"recent.refresh", Group::RecentPage, QT_TRANSLATE_NOOP("Shortcuts", "Refresh"), keys("F5")},
        {"cloud.open", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Open"), keys("Return")},
        {"cloud.back", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Back"), keys("Alt+Left")},
        {"cloud.forward", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Forward"), keys("Alt+Right")},
        {"cloud.up", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "To the folder above"), keys("Alt+Up")},
        {"cloud.upload", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Upload files"), keys("Ctrl+U")},
        {"cloud.uploadfolder", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Upload a folder"),
            keys("Ctrl+Shift+U")},
        {"cloud.newfolder", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "New folder"),
            keys("Ctrl+Shift+N")},
        {"cloud.download", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Download"), keys("Ctrl+D")},
        {"cloud.reveal", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Show in file manager"),
            keys("Ctrl+Return")},
        {"cloud.cut", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Cut"), keys("Ctrl+X")},
        {"cloud.copy", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Copy"), keys("Ctrl+C")},
        {"cloud.paste", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Paste"), keys("Ctrl+V")},
        {"cloud.move", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Move to another folder"),
            keys("Ctrl+Shift+M")},
        {"cloud.rename", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Rename"), keys("F2")},
        {"cloud.trash", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Move to recycle bin"), keys("Del")},
        {"cloud.refresh", Group::CloudPage, QT_TRANSLATE_NOOP("Shortcuts", "Refresh"), keys("F5")},
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

} // namespace

const QVector<ShortcutRow> &shortcutTable()
{
    static const QVector<ShortcutRow> table = makeTable();
    return table;
}

} // namespace zel
