#include "widgets/shortcuttable.h"

#include <QtGlobal>

namespace zel {
namespace {

using Group = ShortcutGroup;

#define TEXT(text) QT_TRANSLATE_NOOP("Shortcuts", text)

// What is not changeable stands here as the widgets have it; whoever changes a key there changes it here.
QVector<ShortcutRow> makeTable()
{
    const auto keys = [](const char *text) { return QKeySequence(QLatin1String(text)); };
    const auto page = [&](const char *id, const char *number, const char *name) {
        return ShortcutRow{id, Group::Pages, TEXT("Go to %1"), keys(number), name, true};
    };
    return {
        {"window.search", Group::MainWindow, TEXT("Search"), keys("Ctrl+F"), nullptr, true},
        {"window.settings", Group::MainWindow, TEXT("Settings"), keys("Ctrl+,"), nullptr, true},
        {"window.menu", Group::MainWindow, TEXT("Main menu"), keys("F10"), nullptr, true},
        {"window.close", Group::MainWindow, TEXT("Close window"), keys("Ctrl+W"), nullptr, true},
        {"window.exit", Group::MainWindow, TEXT("Exit"), keys("Ctrl+Q"), nullptr, true},
        page("page.1", "Ctrl+1", QT_TRANSLATE_NOOP("Navigation", "Recent")),
        page("page.2", "Ctrl+2", QT_TRANSLATE_NOOP("Navigation", "Cloud documents")),
        page("page.3", "Ctrl+3", QT_TRANSLATE_NOOP("Navigation", "Team folders")),
        page("page.4", "Ctrl+4", QT_TRANSLATE_NOOP("Navigation", "Messages")),
        page("page.5", "Ctrl+5", QT_TRANSLATE_NOOP("Navigation", "File radar")),
        page("page.6", "Ctrl+6", QT_TRANSLATE_NOOP("Navigation", "Channels")),
        page("page.7", "Ctrl+7", QT_TRANSLATE_NOOP("Navigation", "Desktop sync")),
        {"pages.next", Group::Pages, TEXT("Next page"), keys("Ctrl+PgDown")},
        {"pages.previous", Group::Pages, TEXT("Previous page"), keys("Ctrl+PgUp")},
        {"recent.open", Group::RecentPage, TEXT("Open"), keys("Return")},
        {"recent.folder", Group::RecentPage, TEXT("Open folder"), keys("Ctrl+Return")},
        {"recent.copy", Group::RecentPage, TEXT("Copy"), keys("Ctrl+C")},
        {"recent.remove", Group::RecentPage, TEXT("Remove from the list"), keys("Del")},
        {"recent.delete", Group::RecentPage, TEXT("Delete file"), keys("Shift+Del")},
        {"recent.select", Group::RecentPage, TEXT("Select or clear the row"), keys("Space")},
        {"recent.selectall", Group::RecentPage, TEXT("Select all"), keys("Ctrl+A")},
        {"recent.menu", Group::RecentPage, TEXT("Menu of the row"), keys("Shift+F10")},
        {"recent.undo", Group::RecentPage, TEXT("Undo the last removal"), keys("Ctrl+Z")},
        {"recent.refresh", Group::RecentPage, TEXT("Refresh"), keys("F5")},
        {"cloud.open", Group::CloudPage, TEXT("Open"), keys("Return")},
        {"cloud.back", Group::CloudPage, TEXT("Back"), keys("Alt+Left")},
        {"cloud.forward", Group::CloudPage, TEXT("Forward"), keys("Alt+Right")},
        {"cloud.up", Group::CloudPage, TEXT("To the folder above"), keys("Alt+Up")},
        {"cloud.upload", Group::CloudPage, TEXT("Upload files"), keys("Ctrl+U")},
        {"cloud.uploadfolder", Group::CloudPage, TEXT("Upload a folder"), keys("Ctrl+Shift+U")},
        {"cloud.newfolder", Group::CloudPage, TEXT("New folder"), keys("Ctrl+Shift+N")},
        {"cloud.download", Group::CloudPage, TEXT("Download"), keys("Ctrl+D")},
        {"cloud.reveal", Group::CloudPage, TEXT("Show in file manager"), keys("Ctrl+Return")},
        {"cloud.cut", Group::CloudPage, TEXT("Cut"), keys("Ctrl+X")},
        {"cloud.copy", Group::CloudPage, TEXT("Copy"), keys("Ctrl+C")},
        {"cloud.paste", Group::CloudPage, TEXT("Paste"), keys("Ctrl+V")},
        {"cloud.move", Group::CloudPage, TEXT("Move to another folder"), keys("Ctrl+Shift+M")},
        {"cloud.rename", Group::CloudPage, TEXT("Rename"), keys("F2")},
        {"cloud.trash", Group::CloudPage, TEXT("Move to recycle bin"), keys("Del")},
        {"cloud.refresh", Group::CloudPage, TEXT("Refresh"), keys("F5")},
        {"mini.open", Group::MiniWindow, TEXT("Open"), keys("Return")},
        {"mini.folder", Group::MiniWindow, TEXT("Open folder"), keys("Ctrl+Return")},
        {"mini.hide", Group::MiniWindow, TEXT("Empty the search field, or hide"), keys("Esc")},
        {"mini.left", Group::MiniWindow, TEXT("Dock to the left edge"), keys("Alt+Left")},
        {"mini.right", Group::MiniWindow, TEXT("Dock to the right edge"), keys("Alt+Right")},
        {"mini.top", Group::MiniWindow, TEXT("Dock to the top edge"), keys("Alt+Up")},
        {"mini.free", Group::MiniWindow, TEXT("Leave the edge"), keys("Alt+Down")},
    };
}

#undef TEXT

} // namespace

const QVector<ShortcutRow> &shortcutTable()
{
    static const QVector<ShortcutRow> table = makeTable();
    return table;
}

} // namespace zel
