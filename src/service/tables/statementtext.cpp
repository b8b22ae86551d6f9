#include "service/tables/statementtext.h"

#include "service/tables/statementparser.h"

namespace zel::service {
namespace {

QLatin1String name(IdColumn column)
{
    return column == IdColumn::FileId ? text::FileId : text::OperatorId;
}

QString equals(IdColumn column, const QString &id)
{
    return name(column) + text::Is + id + text::Quote;
}

struct Writer
{
    QString operator()(const RadarStatement &statement) const { return std::visit(*this, statement); }
    QString operator()(const MessageStatement &statement) const { return std::visit(*this, statement); }

    QString operator()(const RadarList &) const { return text::RadarList; }
    QString operator()(const RadarForget &s) const { return text::RadarForget + s.path + text::Quote; }
    QString operator()(const RadarClear &s) const { return text::RadarClear + QString::number(s.source); }
    QString operator()(const RoamingList &s) const
    {
        const auto kind = s.kind == RoamingKind::Update ? text::RoamingUpdate : text::RoamingCreate;
        return text::RoamingHead + kind + text::RoamingTail;
    }
    QString operator()(const IdList &s) const
    {
        return text::Select + name(s.column) + text::IdListMiddle + name(s.column);
    }
    QString operator()(const IdMessages &s) const
    {
        return text::IdMessagesHead + equals(s.column, s.id) + text::Family + text::Newest
            + QString::number(s.limit);
    }
    QString operator()(const IdUnread &s) const
    {
        QStringList ids;
        for (const QString &id : s.ids)
            ids.append(equals(s.column, id));
        return text::Select + name(s.group) + text::UnreadMiddle + ids.join(text::Or) + text::UnreadClose
            + text::Family + text::GroupBy + name(s.group);
    }
    QString operator()(const ClearId &s) const
    {
        return text::MarkBoth + equals(s.column, s.id) + text::Family;
    }
    QString operator()(const MarkReadUpTo &s) const
    {
        return (s.trayToo ? text::MarkBoth : text::MarkPages) + equals(IdColumn::FileId, s.fileId)
            + text::UpTo + QString::number(s.time);
    }
    QString operator()(const RoamingTabUnread &) const { return text::RoamingTabUnread; }
};

} // namespace

QString toText(const Statement &statement)
{
    return std::visit(Writer(), statement);
}

} // namespace zel::service
