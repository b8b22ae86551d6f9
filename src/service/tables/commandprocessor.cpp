#include "service/tables/commandprocessor.h"

#include "base/clock.h"
#include "base/latin1.h"
#include "base/logging.h"
#include "cloud/wire/rowcodec.h"
#include "service/tables/statementparser.h"

namespace zel::service {
namespace {

constexpr QLatin1String Success = latin1("success");
constexpr QLatin1String Failed = latin1("failed");

QString asText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString replyName(const TableCommand &command)
{
    if (command.table == TableKind::Radar)
        return QStringLiteral("GetRadarMsg");
    for (const QLatin1String name : {latin1("GetRoamingUpdateMsg"), latin1("GetRoamingCreateMsg"),
             latin1("GetRoamingTabUnread"), latin1("GetOperatorIds"), latin1("GetIdUnread"),
             latin1("GetOperatorIdUnread"), latin1("ClearIdUnread"), latin1("SetRoamingMsgRead")}) {
        if (command.guid == name)
            return name;
    }
    return QStringLiteral("GetStoredMsg");
}

Push reply(const TableCommand &command, const std::optional<TableResult> &result)
{
    const bool done = result && result->ok();
    const QLatin1String state = done ? Success : Failed;
    const QString text = done && result->hasRows ? wire::joinRows(result->rows) : QString(state);
    return {replyName(command),
        {{latin1("guid"), command.guid}, {latin1("commandline"), text}, {latin1("state"), state}}};
}

QString settingCommand(int source)
{
    switch (source) {
    case 1:
        return QStringLiteral("QQRadarSettingChange");
    case 2:
        return QStringLiteral("WechatRadarSettingChange");
    case 3:
        return QStringLiteral("WebDownloadRadarSettingChange");
    default:
        return QStringLiteral("DesktopRadarSettingChange");
    }
}

} // namespace

CommandOutcome CommandProcessor::process(const QString &line)
{
    if (const auto command = parseCommand(line))
        return process(*command);
    qCWarning(lcService, "a command line of %d characters was not understood", int(line.size()));
    return {};
}

CommandOutcome CommandProcessor::process(const ServiceCommand &command)
{
    CommandOutcome outcome = std::visit([this](const auto &one) { return run(one); }, command);
    outcome.understood = true;
    return outcome;
}

std::optional<TableResult> CommandProcessor::runStatement(const TableCommand &command)
{
    Refusal why = Refusal::UnknownShape;
    const auto statement = parseStatement(command.statement, &why);
    const auto *radar = statement ? std::get_if<RadarStatement>(&*statement) : nullptr;
    const auto *message = statement ? std::get_if<MessageStatement>(&*statement) : nullptr;
    if (radar && command.table == TableKind::Radar)
        return m_radar.run(*radar);
    if (message && command.table == TableKind::Message)
        return m_messages.run(*message);
    qCWarning(lcService, "a statement was refused: %s", statement ? "another table's" : toText(why));
    return {};
}

CommandOutcome CommandProcessor::run(const TableCommand &command)
{
    const auto result = runStatement(command);
    CommandOutcome outcome;
    outcome.done = result && result->ok();
    outcome.pushes.append(reply(command, result));
    if (outcome.done && command.table == TableKind::Radar && result->changed > 0)
        outcome.pushes.append({QStringLiteral("RadarFileDelete"),
            {{latin1("commandline"), wire::joinRows(result->rows)}}, Push::Audience::Everyone});
    return outcome;
}

CommandOutcome CommandProcessor::run(const WatchCommand &command)
{
    CommandOutcome outcome;
    outcome.done =
        m_switches.set(SwitchTable::Switch::Watch, command.source, command.on) == sqlite::Failure::None;
    if (outcome.done)
        outcome.pushes.append({settingCommand(command.source), {{latin1("setting"), asText(command.on)}},
            Push::Audience::Everyone});
    return outcome;
}

CommandOutcome CommandProcessor::run(const BackupCommand &command)
{
    CommandOutcome outcome;
    outcome.done =
        m_switches.set(SwitchTable::Switch::Backup, command.source, command.on) == sqlite::Failure::None;
    if (outcome.done)
        outcome.pushes.append({QStringLiteral("GetBackupResult"),
            {{latin1("BackupType"), QString::number(command.source)}, {latin1("setting"), asText(command.on)},
                {latin1("commandline"), Success}},
            Push::Audience::Everyone});
    return outcome;
}

CommandOutcome CommandProcessor::run(const ClearTrayCommand &command)
{
    CommandOutcome outcome;
    outcome.done = m_messages.clearTrayUnread(command.type).ok();
    return outcome;
}

CommandOutcome CommandProcessor::run(const LinkDocumentCommand &command)
{
    Message message;
    message.topic = QStringLiteral("zel.link.local");
    message.type = QStringLiteral("link_create");
    message.time = now().toMSecsSinceEpoch();
    // The user did it, so there is nothing to be told.
    message.read = message.trayRead = message.recentRead = true;
    message.fileId = command.fileId;
    message.fileName = command.fileName;
    message.linkId = command.linkId;
    message.operatorId = command.operatorId;
    message.operatorName = command.operatorName;
    message.groupId = command.groupId;
    message.title = command.title;
    message.content = command.content;
    CommandOutcome outcome;
    outcome.done = m_messages.insert({message}).ok();
    if (outcome.done)
        outcome.pushes.append({QStringLiteral("NewMsgArrive"), {}, Push::Audience::Everyone});
    return outcome;
}

} // namespace zel::service
