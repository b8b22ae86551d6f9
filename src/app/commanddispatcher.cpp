#include "app/commanddispatcher.h"

#include "app/commandline.h"
#include "app/commandtarget.h"
#include "message/zelboxmessagerouter.h"
#include "message/zelboxtransferrouter.h"
#include "radar/zelboxradarrouter.h"

#include <QSet>
#include <QStringList>

namespace {

// Names as the parser gives them, in lower case.
const QString From = QStringLiteral("from");
const QString Action = QStringLiteral("action");
const QString RadarId = QStringLiteral("radarid");
const QString Category = QStringLiteral("category");
const QString MsgId = QStringLiteral("msgid");
const QString Options = QStringLiteral("options");

bool isAction(const CommandLine &command, QLatin1String word)
{
    return command.value(Action) == word;
}

// Each handler says whether it produced a window.

bool handleFrom(const CommandLine &command, CommandTarget &target)
{
    const QString source = command.value(From);
    const bool known = source == QLatin1String("traymenu") || source == QLatin1String("traystatus");
    Q_EMIT ZelBoxTransferRouter::instance()->sigSourceFrom(known ? source : QStringLiteral("other"));
    if (source == QLatin1String("tray"))
        target.setStartOrigin(StartOrigin::Tray);
    else if (source == QLatin1String("desktop"))
        target.setStartOrigin(StartOrigin::DesktopShortcut);
    return false;
}

bool handleTab(const CommandLine &command, CommandTarget &target)
{
    target.selectPage(command.value(QStringLiteral("tab")).toInt());
    return true;
}

bool handleSettingsParam(const CommandLine &command, CommandTarget &target)
{
    target.openSettings(command.value(QStringLiteral("settings_param")));
    return true;
}

bool handleTrayState(const CommandLine &command, CommandTarget &target)
{
    target.setTrayState(command.value(QStringLiteral("traystate")));
    return false;
}

bool handleError(const CommandLine &, CommandTarget &)
{
    Q_EMIT ZelBoxTransferRouter::instance()->sigShowTransferError();
    return false;
}

bool handleId(const CommandLine &command, CommandTarget &)
{
    Q_EMIT ZelBoxMessageRouter::instance()->sigNavigateRecentTab(command.value(QStringLiteral("id")));
    return false;
}

bool handleFid(const CommandLine &command, CommandTarget &)
{
    Q_EMIT ZelBoxMessageRouter::instance()->selectContactsFileId(command.value(QStringLiteral("fid")));
    Q_EMIT ZelBoxMessageRouter::instance()->sigDocMsgViewTypeChanged();
    return false;
}

bool handleRadarId(const CommandLine &command, CommandTarget &)
{
    if (isAction(command, QLatin1String("notifybackup")))
        ZelBoxRadarRouter::instance()->notifyBackupSource(command.value(RadarId));
    else
        ZelBoxRadarRouter::instance()->selectGenre(command.value(RadarId).toInt());
    return false;
}

bool handleGroupId(const CommandLine &command, CommandTarget &)
{
    Q_EMIT ZelBoxMessageRouter::instance()->sigBrowserGroupIdChanged(
        command.value(QStringLiteral("groupid")));
    return false;
}

bool handleCategory(const CommandLine &command, CommandTarget &)
{
    Q_EMIT ZelBoxMessageRouter::instance()->sigSelectMsgChannelItem(
        command.value(Category), command.value(From), command.value(MsgId));
    return false;
}

bool handleAction(const CommandLine &command, CommandTarget &target)
{
    if (isExit(command)) {
        target.quitLater();
    } else if (isAction(command, QLatin1String("exitdlg"))) {
        target.showExitDialog();
        return true;
    }
    return false;
}

bool handleShortcutIcon(const CommandLine &, CommandTarget &target)
{
    target.setStartOrigin(StartOrigin::DesktopShortcut);
    return false;
}

bool performWord(const QString &word, CommandTarget &target)
{
    if (word == QLatin1String("showZelBox"))
        target.showMainWindow();
    else if (word == QLatin1String("showZelBoxMini"))
        target.showMiniWindow(QString());
    else if (word == QLatin1String("settings"))
        target.openSettings(QString());
    else if (word == QLatin1String("folderselector"))
        target.openFolderSelector();
    else
        return false;
    return true;
}

bool handleOptions(const CommandLine &command, CommandTarget &target)
{
    bool produced = false;
    const QStringList words = command.value(Options).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (const QString &word : words)
        produced |= performWord(word, target);
    return produced;
}

bool handleShow(const CommandLine &, CommandTarget &target)
{
    target.showMainWindow();
    return true;
}

bool handleStartFrom(const CommandLine &command, CommandTarget &target)
{
    target.showMiniWindow(command.value(QStringLiteral("start_from")));
    return true;
}

bool handleParam(const CommandLine &command, CommandTarget &target)
{
    target.openSyncFolder(command.value(QStringLiteral("param")));
    return true;
}

struct Row
{
    const char *option;
    bool (*handle)(const CommandLine &, CommandTarget &);
};

// The order is the order in which the options of one command line act: where two open windows, the later one
// has the focus in the end.
constexpr Row Table[] = {
    {"from", handleFrom},
    {"tab", handleTab},
    {"settings_param", handleSettingsParam},
    {"traystate", handleTrayState},
    {"error", handleError},
    {"id", handleId},
    {"fid", handleFid},
    {"radarid", handleRadarId},
    {"groupid", handleGroupId},
    {"category", handleCategory},
    {"action", handleAction},
    {"shortcuticon", handleShortcutIcon},
    {"options", handleOptions},
    {"show", handleShow},
    {"start_from", handleStartFrom},
    {"param", handleParam},
};

// Options that belong to an addressing one and address nothing by themselves.
bool isCompanion(const CommandLine &command, const QString &name)
{
    if (name == From || name == MsgId)
        return command.has(Category);
    return name == Action && command.has(RadarId);
}

} // namespace

bool startsInBackground(const CommandLine &command)
{
    const QString source = command.value(From);
    return source == QLatin1String("autostart") || source == QLatin1String("dbus");
}

bool leavesWindowAlone(const CommandLine &command)
{
    if (startsInBackground(command) && command.options.size() == 1)
        return true;
    static const QSet<QString> addressing{
        QStringLiteral("id"), QStringLiteral("fid"), RadarId, QStringLiteral("groupid"), Category};
    if (command.options.size() == 1 && command.has(Options))
        return command.value(Options).split(QLatin1Char('|'), Qt::SkipEmptyParts).isEmpty();
    for (auto option = command.options.cbegin(); option != command.options.cend(); ++option) {
        if (!addressing.contains(option.key()) && !isCompanion(command, option.key()))
            return false;
    }
    return !command.options.isEmpty();
}

void dispatchCommand(const CommandLine &command, bool first, CommandTarget &target)
{
    if (command.options.isEmpty()) {
        if (!first)
            target.showMainWindow();
        return;
    }
    bool producedWindow = false;
    for (const Row &row : Table) {
        if (command.has(QLatin1String(row.option)))
            producedWindow |= row.handle(command, target);
    }
    if (!producedWindow && !first && !leavesWindowAlone(command))
        target.sendToBackground();
}
