#include "clouddoc/ui/cloudactiontable.h"

namespace {

using zel::ActionKeys;
using zel::ActionNeeds;
using zel::ActionRow;

enum Group { Opening, Carrying, Changing, Adding, Page, Ways };

ActionRow row(CloudCommand command, Group group, const char *id, const char *text, const char *icon,
    const QList<QKeySequence> &keys, ActionNeeds needs, ActionKeys where, const char *explained = nullptr,
    const char *several = nullptr)
{
    return {int(command), id, text, icon, keys, needs, group, where, explained, several};
}

QVector<ActionRow> rows()
{
    using C = CloudCommand;
    constexpr auto One = ActionNeeds::OneRow;
    constexpr auto Rows = ActionNeeds::Rows;
    constexpr auto None = ActionNeeds::Nothing;
    constexpr auto InList = ActionKeys::InList;
    constexpr auto InPage = ActionKeys::InPage;
    const auto keys = [](const char *list) { return QKeySequence::listFromString(QLatin1String(list)); };
    const auto standard = [](QKeySequence::StandardKey key) { return QKeySequence::keyBindings(key); };
    return {
        row(C::Open, Opening, "cloud.open", QT_TRANSLATE_NOOP("CloudDocActions", "Open"), "folder_open",
            keys("Return"), Rows, ActionKeys::OfList),
        row(C::Reveal, Opening, "cloud.reveal", QT_TRANSLATE_NOOP("CloudDocActions", "Show in File Manager"),
            "folder", keys("Ctrl+Return"), One, InList),
        row(C::Download, Opening, "cloud.download", QT_TRANSLATE_NOOP("CloudDocActions", "Download…"),
            "download", keys("Ctrl+D"), Rows, InList, QT_TRANSLATE_NOOP("CloudDocActions", "Download")),
        row(C::Cut, Carrying, "cloud.cut", QT_TRANSLATE_NOOP("CloudDocActions", "Cut"), "cut",
            standard(QKeySequence::Cut), Rows, InList),
        row(C::Copy, Carrying, "cloud.copy", QT_TRANSLATE_NOOP("CloudDocActions", "Copy"), "copy",
            standard(QKeySequence::Copy), Rows, InList),
        row(C::Paste, Carrying, "cloud.paste", QT_TRANSLATE_NOOP("CloudDocActions", "Paste"), "paste",
            standard(QKeySequence::Paste), None, InList),
        row(C::MoveTo, Changing, "cloud.move", QT_TRANSLATE_NOOP("CloudDocActions", "Move to…"), "move_to",
            keys("Ctrl+Shift+M"), Rows, InList,
            QT_TRANSLATE_NOOP("CloudDocActions", "Move to another folder")),
        row(C::Rename, Changing, "cloud.rename", QT_TRANSLATE_NOOP("CloudDocActions", "Rename"), "rename",
            keys("F2"), One, InList),
        row(C::Trash, Changing, "cloud.trash", QT_TRANSLATE_NOOP("CloudDocActions", "Move to Recycle Bin"),
            "trash", keys("Del"), Rows, InList, nullptr,
            QT_TRANSLATE_N_NOOP("CloudDocActions", "Move %Ln Item(s) to Recycle Bin")),
        row(C::NewFolder, Adding, "cloud.newfolder", QT_TRANSLATE_NOOP("CloudDocActions", "New Folder"),
            "folder_new", keys("Ctrl+Shift+N"), None, InPage),
        row(C::UploadFiles, Adding, "cloud.upload", QT_TRANSLATE_NOOP("CloudDocActions", "Upload Files…"),
            "upload", keys("Ctrl+U"), None, InPage, QT_TRANSLATE_NOOP("CloudDocActions", "Upload files")),
        row(C::UploadFolder, Adding, "cloud.uploadfolder",
            QT_TRANSLATE_NOOP("CloudDocActions", "Upload Folder…"), "upload_folder", keys("Ctrl+Shift+U"),
            None, InPage, QT_TRANSLATE_NOOP("CloudDocActions", "Upload a folder")),
        row(C::Undo, Page, "cloud.undo", QT_TRANSLATE_NOOP("CloudDocActions", "Undo"), nullptr,
            standard(QKeySequence::Undo), None, InPage,
            QT_TRANSLATE_NOOP("CloudDocActions", "Undo the last removal, move or new name")),
        row(C::Reload, Page, "cloud.refresh", QT_TRANSLATE_NOOP("CloudDocActions", "Refresh"), "retry",
            standard(QKeySequence::Refresh), None, InPage),
        row(C::Back, Ways, "cloud.back", QT_TRANSLATE_NOOP("CloudDocActions", "Back"), "go_back",
            keys("Alt+Left"), None, InPage),
        row(C::Forward, Ways, "cloud.forward", QT_TRANSLATE_NOOP("CloudDocActions", "Forward"), "go_forward",
            keys("Alt+Right"), None, InPage),
        row(C::Up, Ways, "cloud.up", QT_TRANSLATE_NOOP("CloudDocActions", "Up"), "go_up", keys("Alt+Up"),
            None, InPage, QT_TRANSLATE_NOOP("CloudDocActions", "To the folder above")),
    };
}

} // namespace

const zel::ActionTable &cloudActionTable()
{
    static const zel::ActionTable table{
        "CloudDocActions", QT_TRANSLATE_NOOP("CloudDocActions", "Cloud documents"), rows()};
    return table;
}
