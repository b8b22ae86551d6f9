#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>
#include <variant>

/// The statements that clients may send for the radar and message tables, as values. A client sends text;
/// nothing of that text is ever run. Its meaning is recognised here and run as a prepared statement of our
/// own.
namespace zel::service {

enum class IdColumn { FileId, OperatorId };
enum class RoamingKind { Update, Create };

struct RadarList
{
    bool operator==(const RadarList &) const = default;
};
struct RadarForget
{
    QString path;
    bool operator==(const RadarForget &) const = default;
};
struct RadarClear
{
    int source;
    bool operator==(const RadarClear &) const = default;
};
using RadarStatement = std::variant<RadarList, RadarForget, RadarClear>;

struct RoamingList
{
    RoamingKind kind;
    bool operator==(const RoamingList &) const = default;
};
struct IdList
{
    IdColumn column;
    bool operator==(const IdList &) const = default;
};
struct IdMessages
{
    IdColumn column;
    QString id;
    int limit;
    bool operator==(const IdMessages &) const = default;
};
/// Unread messages of the ids in `column`, counted by `group`, which is the same column or the operator's.
struct IdUnread
{
    IdColumn group;
    IdColumn column;
    QStringList ids; ///< at least one
    bool operator==(const IdUnread &) const = default;
};
struct ClearId
{
    IdColumn column;
    QString id;
    bool operator==(const ClearId &) const = default;
};
struct MarkReadUpTo
{
    QString fileId;
    qint64 time; ///< messages of this time are marked too
    bool trayToo;
    bool operator==(const MarkReadUpTo &) const = default;
};
struct RoamingTabUnread
{
    bool operator==(const RoamingTabUnread &) const = default;
};
using MessageStatement =
    std::variant<RoamingList, IdList, IdMessages, IdUnread, ClearId, MarkReadUpTo, RoamingTabUnread>;

using Statement = std::variant<RadarStatement, MessageStatement>;

} // namespace zel::service
