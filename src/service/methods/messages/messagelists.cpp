#include "service/methods/messages/messagelists.h"

#include "service/methods/messages/messagerecords.h"

namespace zel::service {

using wire::ServiceError;

namespace {

constexpr int UsualCount = 100; ///< when a list does not say how many it wants
constexpr int MostCount = 1000;

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

QStringList texts(const std::vector<std::string> &utf8)
{
    QStringList list;
    for (const std::string &one : utf8)
        list.append(text(one));
    return list;
}

int countOf(int32_t wanted)
{
    return wanted <= 0 ? UsualCount : qMin(int(wanted), MostCount);
}

int offsetOf(int32_t wanted)
{
    return qMax(int(wanted), 0);
}

MessagePlace placeOf(int32_t number)
{
    return number == 1 ? MessagePlace::Tray : number == 2 ? MessagePlace::Recent : MessagePlace::Pages;
}

// "<time>.<message id>"
MessageCursor cursorOf(const std::string &cursor)
{
    const QString all = text(cursor);
    return {all.section(QLatin1Char('.'), 0, 0).toLongLong(), all.section(QLatin1Char('.'), 1)};
}

std::string cursorAfter(const vela::NewMessageItem &item)
{
    return std::to_string(item.time) + '.' + item.messageId;
}

std::vector<vela::MessageItem> itemsOf(const TableResult &result)
{
    std::vector<vela::MessageItem> items;
    for (const QStringList &row : result.rows)
        items.push_back(toMessageItem(MessageTable::fromRow(row)));
    return items;
}

} // namespace

MessageLists::MessageLists(CloudDatabase &database, AccountState &account)
    : m_access(database, account), m_queries(database.connection())
{
}

void MessageLists::serve(MethodTable &methods)
{
    methods.serve("getMsgList", this, &MessageLists::getMsgList);
    methods.serve("getUnreadMsgCount", this, &MessageLists::getUnreadMsgCount);
    methods.serve("getUnreadMsgList", this, &MessageLists::getUnreadMsgList);
    methods.serve("getUnreadNewMsgList", this, &MessageLists::getUnreadNewMsgList);
}

void MessageLists::getMsgList(const vela::GetMsgListArg &request, Answer<vela::GetMsgListResult> answer)
{
    if (!m_access.isUsable(request.userId, answer))
        return;
    MessageFilter filter;
    filter.category = text(request.category);
    filter.topics = texts(request.topics);
    filter.types = texts(request.types);
    filter.fileId = text(request.fileId);
    filter.operatorId = text(request.operatorId);
    filter.groupId = text(request.groupId);
    filter.unreadOnly = request.unreadOnly;
    filter.since = request.sinceTime;
    filter.until = request.untilTime;
    const TableResult counts = m_queries.counts(filter);
    const TableResult found = m_queries.list(filter, offsetOf(request.offset), countOf(request.count));
    if (!m_access.worked(counts, answer) || !m_access.worked(found, answer))
        return;
    vela::GetMsgListResult result;
    result.messages = itemsOf(found);
    result.total = counts.rows.first().value(0).toLongLong();
    result.unreadCount = counts.rows.first().value(1).toLongLong();
    answer.send(result);
}

void MessageLists::getUnreadMsgCount(
    const vela::GetUnreadMsgCountArg &request, Answer<vela::GetUnreadMsgCountResult> answer)
{
    constexpr const char *columns[] = {"topic", "fileId", "operatorId"};
    if (!m_access.isUsable(request.userId, answer))
        return;
    if (request.groupBy < 0 || request.groupBy >= int32_t(std::size(columns)))
        return answer.fail(
            ServiceError::InvalidArgument, QStringLiteral("Messages are not counted by that."));
    MessageFilter filter;
    filter.category = text(request.category);
    filter.topics = texts(request.topics);
    filter.place = placeOf(request.place);
    const TableResult found = m_queries.unreadBy(filter, columns[request.groupBy]);
    if (!m_access.worked(found, answer))
        return;
    std::map<std::string, vela::UnreadMsgInfo> infos;
    for (const std::string &id : request.ids)
        infos[id].id = id;
    for (const QStringList &row : found.rows) {
        const std::string id = row.value(0).toStdString();
        if (!request.ids.empty() && !infos.count(id))
            continue;
        vela::UnreadMsgInfo &info = infos[id];
        info.id = id;
        info.unreadCount = row.value(1).toInt();
        info.latestTime = row.value(2).toLongLong();
        info.latestMessageId = row.value(3).toStdString();
    }
    vela::GetUnreadMsgCountResult result;
    for (const auto &[id, info] : infos) {
        result.unreadInfos.push_back(info);
        result.unreadCount += info.unreadCount;
    }
    answer.send(result);
}

void MessageLists::getUnreadMsgList(
    const vela::GetUnreadMsgListArg &request, Answer<vela::GetUnreadMsgListResult> answer)
{
    if (!m_access.isUsable(request.userId, answer))
        return;
    MessageFilter filter;
    filter.category = text(request.category);
    filter.topics = texts(request.topics);
    filter.place = placeOf(request.place);
    filter.unreadOnly = true;
    const TableResult counts = m_queries.counts(filter);
    const TableResult found = m_queries.list(filter, offsetOf(request.offset), countOf(request.count));
    if (!m_access.worked(counts, answer) || !m_access.worked(found, answer))
        return;
    vela::GetUnreadMsgListResult result;
    result.messages = itemsOf(found);
    result.total = counts.rows.first().value(0).toLongLong();
    answer.send(result);
}

void MessageLists::getUnreadNewMsgList(
    const vela::GetUnreadNewMsgListArg &request, Answer<vela::GetUnreadNewMsgListResult> answer)
{
    if (!m_access.isUsable(request.userId, answer))
        return;
    MessageFilter filter;
    filter.topics = texts(request.topics);
    filter.types = texts(request.types);
    filter.place = placeOf(request.place);
    filter.unreadOnly = true;
    const int count = countOf(request.count);
    const TableResult counts = m_queries.counts(filter);
    // One more than wanted tells whether there are more.
    const TableResult found =
        m_queries.listFrom(filter, cursorOf(request.cursor), count + 1, request.latestPerFile);
    if (!m_access.worked(counts, answer) || !m_access.worked(found, answer))
        return;
    vela::GetUnreadNewMsgListResult result;
    result.hasMore = found.rows.size() > count;
    for (const QStringList &row : found.rows.mid(0, count))
        result.messages.push_back(toNewMessageItem(MessageTable::fromRow(row)));
    if (result.hasMore)
        result.nextCursor = cursorAfter(result.messages.back());
    result.unreadCount = counts.rows.first().value(1).toLongLong();
    answer.send(result);
}

} // namespace zel::service
