#include "recentfile/ui/recentactiontable.h"

namespace {

using zel::ActionKeys;
using zel::ActionNeeds;
using zel::ActionRow;

enum Group { Opening, Keeping, Removing, Reporting, Page };

ActionRow row(RecentCommand command, Group group, const char *id, const char *text, const char *icon,
    const QList<QKeySequence> &keys, ActionNeeds needs = ActionNeeds::Rows,
    ActionKeys where = ActionKeys::InList, const char *explained = nullptr, const char *several = nullptr)
{
    return {int(command), id, text, icon, keys, needs, group, where, explained, several};
}

QVector<ActionRow> rows()
{
    using C = RecentCommand;
    constexpr auto One = ActionNeeds::OneRow;
    constexpr auto Rows = ActionNeeds::Rows;
    constexpr auto None = ActionNeeds::Nothing;
    const auto keys = [](const char *list) { return QKeySequence::listFromString(QLatin1String(list)); };
    return {
        row(C::Open, Opening, "recent.open", QT_TRANSLATE_NOOP("KRecentFileMenu", "Open"), nullptr,
            keys("Return"), Rows, ActionKeys::OfList),
        row(C::OpenWith, Opening, "recent.openwith", QT_TRANSLATE_NOOP("KRecentFileMenu", "Open With"),
            nullptr, {}, One),
        row(C::OpenFolder, Opening, "recent.folder", QT_TRANSLATE_NOOP("KRecentFileMenu", "Open Folder"),
            "folder_open", keys("Ctrl+Return; Ctrl+Enter; Alt+Return; Alt+Enter")),
        row(C::Share, Opening, "recent.share", QT_TRANSLATE_NOOP("KRecentFileMenu", "share doc"),
            "16x16/zelbox_share", {}, One, ActionKeys::InList, QT_TRANSLATE_NOOP("KRecentFileMenu", "Share")),
        row(C::Pin, Keeping, "recent.pin", QT_TRANSLATE_NOOP("KRecentFileMenu", "Pin to Top"), "pin", {}),
        row(C::Copy, Keeping, "recent.copy", QT_TRANSLATE_NOOP("KRecentFileMenu", "Copy"), nullptr,
            QKeySequence::keyBindings(QKeySequence::Copy)),
        row(C::CopyPath, Keeping, "recent.copypath", QT_TRANSLATE_NOOP("KRecentFileMenu", "Copy Path"),
            nullptr, {}),
        row(C::Remove, Removing, "recent.remove", QT_TRANSLATE_NOOP("KRecentFileMenu", "Remove"), nullptr,
            keys("Del"), Rows, ActionKeys::InList,
            QT_TRANSLATE_NOOP("KRecentFileMenu", "Remove from the list")),
        row(C::DeleteFile, Removing, "recent.delete",
            QT_TRANSLATE_NOOP("KRecentFileMenu", "Move to Recycle Bin"), "trash", keys("Shift+Del"), Rows,
            ActionKeys::InList, nullptr,
            QT_TRANSLATE_N_NOOP("KRecentFileMenu", "Move %Ln File(s) to Recycle Bin")),
        row(C::TipOff, Reporting, "recent.tipoff", QT_TRANSLATE_NOOP("KRecentFileMenu", "Tip-Off"), nullptr,
            {}, One),
        row(C::Undo, Page, "recent.undo", QT_TRANSLATE_NOOP("KRecentFileMenu", "Undo"), nullptr,
            QKeySequence::keyBindings(QKeySequence::Undo), None, ActionKeys::InPage,
            QT_TRANSLATE_NOOP("KRecentFileMenu", "Undo the last change of the list")),
        row(C::Refresh, Page, "recent.refresh", QT_TRANSLATE_NOOP("KRecentFileMenu", "Refresh"), nullptr,
            QKeySequence::keyBindings(QKeySequence::Refresh), None, ActionKeys::InPage),
    };
}

} // namespace

const zel::ActionTable &recentActionTable()
{
    static const zel::ActionTable table{
        "KRecentFileMenu", QT_TRANSLATE_NOOP("KRecentFileMenu", "Recent documents"), rows()};
    return table;
}
