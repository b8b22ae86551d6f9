#include "service/tables/statementparser.h"

#include "service/tables/statementtext.h"
#include "service/tables/textcursor.h"

#include <limits>

namespace zel::service {
namespace {

std::optional<IdColumn> takeColumn(TextCursor &at)
{
    if (at.take(text::FileId))
        return IdColumn::FileId;
    if (at.take(text::OperatorId))
        return IdColumn::OperatorId;
    return {};
}

bool takeColumn(TextCursor &at, IdColumn column)
{
    return at.take(column == IdColumn::FileId ? text::FileId : text::OperatorId);
}

/// "<column> = '<id>'"
std::optional<QString> takeId(TextCursor &at, IdColumn column)
{
    if (!takeColumn(at, column) || !at.take(text::Is))
        return {};
    return at.takeQuoted(MaxIdLength);
}

std::optional<Statement> radarList(TextCursor &at)
{
    if (at.take(text::RadarList) && at.atEnd())
        return RadarStatement(RadarList{});
    return {};
}

std::optional<Statement> radarForget(TextCursor &at)
{
    if (!at.take(text::RadarForget))
        return {};
    const auto path = at.takeQuoted(MaxPathLength);
    if (path && at.atEnd())
        return RadarStatement(RadarForget{*path});
    return {};
}

std::optional<Statement> radarClear(TextCursor &at)
{
    if (!at.take(text::RadarClear))
        return {};
    const auto source = at.takeNumber(std::numeric_limits<int>::max());
    if (source && at.atEnd())
        return RadarStatement(RadarClear{int(*source)});
    return {};
}

std::optional<Statement> roamingList(TextCursor &at)
{
    if (!at.take(text::RoamingHead))
        return {};
    const bool update = at.take(text::RoamingUpdate);
    if ((update || at.take(text::RoamingCreate)) && at.take(text::RoamingTail) && at.atEnd())
        return MessageStatement(RoamingList{update ? RoamingKind::Update : RoamingKind::Create});
    return {};
}

std::optional<Statement> idList(TextCursor &at)
{
    if (!at.take(text::Select))
        return {};
    const auto column = takeColumn(at);
    if (column && at.take(text::IdListMiddle) && takeColumn(at, *column) && at.atEnd())
        return MessageStatement(IdList{*column});
    return {};
}

std::optional<Statement> idMessages(TextCursor &at)
{
    if (!at.take(text::IdMessagesHead))
        return {};
    const auto column = TextCursor(at).take(text::FileId) ? IdColumn::FileId : IdColumn::OperatorId;
    const auto id = takeId(at, column);
    if (!id || !at.take(text::Family) || !at.take(text::Newest))
        return {};
    const auto limit = at.takeNumber(MaxRows);
    if (limit && at.atEnd())
        return MessageStatement(IdMessages{column, *id, int(*limit)});
    return {};
}

std::optional<QStringList> takeIds(TextCursor &at, IdColumn column)
{
    QStringList ids;
    do {
        const auto id = takeId(at, column);
        if (!id)
            return {};
        if (ids.size() == MaxIds) {
            at.refuse(Refusal::TooManyIds);
            return {};
        }
        ids.append(*id);
    } while (at.take(text::Or));
    return ids;
}

std::optional<Statement> idUnread(TextCursor &at)
{
    if (!at.take(text::Select))
        return {};
    const auto group = takeColumn(at);
    if (!group || !at.take(text::UnreadMiddle))
        return {};
    // Counts by operator are asked for operators or for documents, counts by document only for documents.
    const auto column = TextCursor(at).take(text::FileId) ? IdColumn::FileId : *group;
    const auto ids = takeIds(at, column);
    if (ids && at.take(text::UnreadClose) && at.take(text::Family) && at.take(text::GroupBy)
        && takeColumn(at, *group) && at.atEnd())
        return MessageStatement(IdUnread{*group, column, *ids});
    return {};
}

std::optional<Statement> clearId(TextCursor &at)
{
    if (!at.take(text::MarkBoth))
        return {};
    const auto column = TextCursor(at).take(text::FileId) ? IdColumn::FileId : IdColumn::OperatorId;
    const auto id = takeId(at, column);
    if (id && at.take(text::Family) && at.atEnd())
        return MessageStatement(ClearId{column, *id});
    return {};
}

std::optional<Statement> markReadUpTo(TextCursor &at)
{
    const bool trayToo = at.take(text::MarkBoth);
    if (!trayToo && !at.take(text::MarkPages))
        return {};
    const auto id = takeId(at, IdColumn::FileId);
    if (!id || !at.take(text::UpTo))
        return {};
    const auto time = at.takeNumber(std::numeric_limits<qint64>::max());
    if (time && at.atEnd())
        return MessageStatement(MarkReadUpTo{*id, *time, trayToo});
    return {};
}

std::optional<Statement> roamingTabUnread(TextCursor &at)
{
    if (at.take(text::RoamingTabUnread) && at.atEnd())
        return MessageStatement(RoamingTabUnread{});
    return {};
}

constexpr auto Shapes = {radarList, radarForget, radarClear, roamingList, idList, idMessages, idUnread,
    clearId, markReadUpTo, roamingTabUnread};

Refusal parse(QStringView text, std::optional<Statement> &statement)
{
    if (text.size() > MaxStatementLength)
        return Refusal::TooLong;
    if (!text.isValidUtf16() || text.contains(QChar(QChar::Null)))
        return Refusal::NotText;
    Refusal refusal = Refusal::UnknownShape;
    for (const auto shape : Shapes) {
        TextCursor at(text);
        statement = shape(at);
        if (statement)
            break;
        if (at.refusal() != Refusal::UnknownShape)
            refusal = at.refusal();
    }
    return refusal;
}

} // namespace

const char *toText(Refusal refusal)
{
    switch (refusal) {
    case Refusal::TooLong:
        return "too long";
    case Refusal::NotText:
        return "not text";
    case Refusal::UnknownShape:
        return "unknown shape";
    case Refusal::ValueTooLong:
        return "value too long";
    case Refusal::NumberTooLarge:
        return "number too large";
    case Refusal::TooManyIds:
        return "too many ids";
    }
    return "";
}

std::optional<Statement> parseStatement(QStringView text, Refusal *why)
{
    std::optional<Statement> statement;
    const Refusal refusal = parse(text, statement);
    if (!statement && why)
        *why = refusal;
    return statement;
}

} // namespace zel::service
