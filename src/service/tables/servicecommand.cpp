#include "service/tables/servicecommand.h"

#include "base/latin1.h"
#include "service/tables/optionlist.h"
#include "service/tables/switchtable.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zel::service {
namespace {

/// Whether the options are just these.
bool areJust(const OptionList &options, std::initializer_list<QLatin1String> names)
{
    if (options.size() != int(names.size()))
        return false;
    for (const QLatin1String name : names) {
        if (!options.contains(name))
            return false;
    }
    return true;
}

std::optional<int> sourceOf(const QString &value)
{
    if (value.size() != 1)
        return {};
    const int source = value.front().unicode() - '0';
    return source >= FirstSource && source <= LastSource ? std::optional(source) : std::nullopt;
}

std::optional<bool> switchOf(const QString &value)
{
    if (value == latin1("1") || value == latin1("true"))
        return true;
    if (value == latin1("0") || value == latin1("false"))
        return false;
    return {};
}

std::optional<ServiceCommand> table(const OptionList &options, TableKind kind, QLatin1String name)
{
    if (!areJust(options, {name, latin1("taskguid")}))
        return {};
    const QString guid = options[latin1("taskguid")];
    const auto statement = decodeText(options[name]);
    if (!statement || guid.isEmpty() || guid.size() > MaxGuidLength)
        return {};
    return TableCommand{kind, *statement, guid};
}

std::optional<ServiceCommand> radarTable(const OptionList &options)
{
    return table(options, TableKind::Radar, latin1("getradarmsg"));
}

std::optional<ServiceCommand> messageTable(const OptionList &options)
{
    return table(options, TableKind::Message, latin1("getstoredmsg"));
}

std::optional<ServiceCommand> watchSwitch(const OptionList &options)
{
    const bool on = areJust(options, {latin1("openradarswitch"), latin1("type")});
    if (!on && !areJust(options, {latin1("closeradarswitch"), latin1("type")}))
        return {};
    const auto source = sourceOf(options[latin1("type")]);
    return source ? std::optional<ServiceCommand>(WatchCommand{*source, on}) : std::nullopt;
}

std::optional<ServiceCommand> backupSwitch(const OptionList &options)
{
    if (!areJust(options, {latin1("switchbackupstatus"), latin1("backuptype")}))
        return {};
    const auto on = switchOf(options[latin1("switchbackupstatus")]);
    const auto source = sourceOf(options[latin1("backuptype")]);
    return on && source ? std::optional<ServiceCommand>(BackupCommand{*source, *on}) : std::nullopt;
}

std::optional<ServiceCommand> clearTray(const OptionList &options)
{
    if (!areJust(options, {latin1("clearalltrayunread"), latin1("messagetype")}))
        return {};
    const QString type = options[latin1("messagetype")];
    const bool wanted = switchOf(options[latin1("clearalltrayunread")]).value_or(false);
    if (!wanted || type.isEmpty() || type.size() > MaxOptionLength)
        return {};
    return ClearTrayCommand{type};
}

std::optional<ServiceCommand> linkDocument(const OptionList &options)
{
    if (!areJust(options, {latin1("insertlinkcreatedocmsg")}))
        return {};
    const auto text = decodeText(options.first());
    const QJsonObject fields = text ? QJsonDocument::fromJson(text->toUtf8()).object() : QJsonObject();
    const auto field = [&fields](QLatin1String name) { return fields[name].toString(); };
    LinkDocumentCommand command{field(latin1("fileId")), field(latin1("fileName")), field(latin1("linkId")),
        field(latin1("operatorId")), field(latin1("operatorName")), field(latin1("groupId")),
        field(latin1("title")), field(latin1("content"))};
    return command.fileId.isEmpty() ? std::nullopt : std::optional<ServiceCommand>(command);
}

constexpr auto Kinds = {radarTable, messageTable, watchSwitch, backupSwitch, clearTray, linkDocument};

} // namespace

std::optional<ServiceCommand> parseCommand(QStringView line)
{
    if (line.size() > MaxCommandLength || !line.isValidUtf16())
        return {};
    const auto options = parseOptions(line);
    if (!options || options->isEmpty())
        return {};
    for (const auto kind : Kinds) {
        if (auto command = kind(*options))
            return command;
    }
    return {};
}

} // namespace zel::service
