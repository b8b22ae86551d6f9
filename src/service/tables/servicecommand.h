#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <variant>

/// The command lines that clients send to the service itself, as values.
namespace zel::service {

inline constexpr int MaxCommandLength = 2 * 1024 * 1024; ///< UTF-16 units
inline constexpr int MaxGuidLength = 1024;               ///< of a task; it may carry an id
inline constexpr int MaxOptionLength = 256;              ///< of a value that is neither Base64 nor a guid

enum class TableKind { Radar, Message };

/// "/GetRadarMsg=<Base64> /TaskGuid=<guid>" or "/GetStoredMsg=<Base64> /TaskGuid=<guid>"
struct TableCommand
{
    TableKind table;
    QString statement; ///< decoded; what it asks for is parseStatement()'s to tell
    QString guid;
};
/// "/openRadarSwitch /type=<source>" or "/closeRadarSwitch /type=<source>"
struct WatchCommand
{
    int source;
    bool on;
};
/// "/SwitchBackupStatus=<1 or 0> /BackupType=<source>"
struct BackupCommand
{
    int source;
    bool on;
};
/// "/ClearAllTrayUnread=1 /MessageType=<type or topic>"
struct ClearTrayCommand
{
    QString type;
};
/// "/InsertLinkCreateDocMsg=<Base64 of a JSON object>": the fields of a message by their names, as text;
/// "fileId" must be there. The document was made by this user from a link.
struct LinkDocumentCommand
{
    QString fileId;
    QString fileName;
    QString linkId;
    QString operatorId;
    QString operatorName;
    QString groupId;
    QString title;
    QString content;
};
using ServiceCommand =
    std::variant<TableCommand, WatchCommand, BackupCommand, ClearTrayCommand, LinkDocumentCommand>;

/// Options stand between blanks as /name=value or /name:value; double quotes group and go; names are
/// case-insensitive. Each kind takes just its own options, each once. Base64 is strict and holds UTF-8;
/// sources are 1 to 4; switches are "1", "true", "0" or "false". Anything else is not understood. Pure;
/// linear in the length.
std::optional<ServiceCommand> parseCommand(QStringView line);

} // namespace zel::service
