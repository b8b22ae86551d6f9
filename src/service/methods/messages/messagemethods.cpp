#include "service/methods/messages/messagemethods.h"

#include "base/clock.h"
#include "cloud/wire/message.h"
#include "service/methods/failuretexts.h"
#include "service/methods/messages/messagenews.h"
#include "service/methods/messages/messagerecords.h"
#include "service/tables/tableschema.h"

#include <QJsonDocument>
#include <QUuid>
#include <algorithm>

namespace zel::service {

using wire::ServiceError;

namespace {

constexpr int LargestMessage = 64 << 10; // bytes of the request
constexpr int MostContents = 100;        // in one push; of further messages it tells the ids

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

/// The fields with which marking and deleting choose messages.
template <class Request> MessageFilter choiceOf(const Request &request)
{
    MessageFilter filter;
    filter.messageIds = texts(request.messageIds);
    if (!filter.messageIds.isEmpty())
        return filter;
    filter.fileId = text(request.fileId);
    filter.operatorId = text(request.operatorId);
    filter.topics = texts(request.topics);
    filter.until = request.untilTime;
    return filter;
}

bool choosesAll(const MessageFilter &filter)
{
    return filter.messageIds.isEmpty() && filter.fileId.isEmpty() && filter.operatorId.isEmpty()
        && filter.topics.isEmpty() && filter.until == 0;
}

vela::MsgStatusChangedItem changedItem(const QStringList &row)
{
    vela::MsgStatusChangedItem item;
    item.messageId = row.value(0).toStdString();
    item.fileId = row.value(1).toStdString();
    item.topic = row.value(2).toStdString();
    item.bRead = row.value(3) == QLatin1String("1");
    item.trayRead = row.value(4) == QLatin1String("1");
    item.recentRead = row.value(5) == QLatin1String("1");
    item.mtime = now().toMSecsSinceEpoch();
    return item;
}

} // namespace

MessageMethods::MessageMethods(CloudDatabase &database, AccountState &account, Pushes &pushes)
    : m_database(database),
      m_account(account),
      m_access(database, account),
      m_pushes(pushes),
      m_radar(database.connection()),
      m_messages(database.connection()),
      m_switches(database.connection()),
      m_queries(database.connection()),
      m_commands(m_radar, m_messages, m_switches)
{
    m_database.addOwner(prepareTables);
}

void MessageMethods::serve(MethodTable &methods)
{
    methods.serve("zelBoxAsynCommandLine", this, &MessageMethods::zelBoxAsynCommandLine);
    methods.serve("storeZelBoxMessage", this, &MessageMethods::storeZelBoxMessage);
    methods.serve("markMsgRead", this, &MessageMethods::markMsgRead);
    methods.serve("deleteMsg", this, &MessageMethods::deleteMsg);
}

void MessageMethods::greet(ClientId client)
{
    if (m_database.ready() == ServiceError::None)
        m_pushes.pushTo(client, "notifyActionsMap", actions(QStringLiteral("MessageDbLoadFinish"), {}));
}

void MessageMethods::tellReloaded()
{
    m_pushes.push("notifyActionsMap", actions(QStringLiteral("MessageDbLoadFinish"), {}));
}

ServiceError MessageMethods::setMessageWaits(const QString &messageId, bool waits)
{
    if (const ServiceError error = m_database.ready(); error != ServiceError::None)
        return error;
    const TableResult found = m_messages.find({messageId});
    if (!found.ok())
        return m_database.errorOf(found.failure);
    if (found.rows.isEmpty())
        return ServiceError::NotFound;
    Message message = MessageTable::fromRow(found.rows.first());
    setWaitsForUpdate(message, waits);
    return m_database.errorOf(m_messages.replace({message}).failure);
}

void MessageMethods::zelBoxAsynCommandLine(
    const vela::ZelBoxAsynCommandLineArg &request, Answer<vela::ZelBoxAsynCommandLineResult> answer)
{
    if (!m_access.isUsable({}, answer))
        return;
    const CommandOutcome outcome = m_commands.process(text(request.commandline));
    if (!outcome.understood)
        return answer.fail(
            ServiceError::InvalidArgument, QStringLiteral("The command line is not understood."));
    if (!outcome.done && outcome.pushes.isEmpty())
        return answer.fail(ServiceError::InputOutput, databaseText());
    const ClientId asker = answer.client();
    answer.send({});
    for (const Push &push : outcome.pushes) {
        const vela::NotifyActionsMapArg record = actions(push.command, push.values);
        if (push.audience == Push::Audience::Asker)
            m_pushes.pushTo(asker, "notifyActionsMap", record);
        else
            m_pushes.push("notifyActionsMap", record);
    }
}

void MessageMethods::storeZelBoxMessage(
    const vela::StoreZelBoxMessageArg &request, Answer<vela::StoreZelBoxMessageResult> answer)
{
    if (!m_access.isUsable({}, answer))
        return;
    if (wire::callFrame("storeZelBoxMessage", 0, request).size() > LargestMessage)
        return answer.fail(ServiceError::TooLarge, QStringLiteral("A message is small."));
    Message message = toMessage(request.message, request.category);
    if (message.messageId.isEmpty())
        message.messageId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (message.time == 0)
        message.time = now().toMSecsSinceEpoch();
    const TableResult before = m_messages.find({message.messageId});
    if (!m_access.worked(before, answer))
        return;
    const bool known = !before.rows.isEmpty();
    if (known && !request.replaceExisting)
        return answer.fail(ServiceError::Exists, QStringLiteral("A message of this id is there already."));
    if (!m_access.worked(m_messages.replace({message}), answer))
        return;
    vela::StoreZelBoxMessageResult result;
    result.messageId = message.messageId.toStdString();
    result.time = message.time;
    result.replaced = known;
    result.unreadCount = unreadCount();
    answer.send(result);
    tellStored({message});
}

void MessageMethods::markMsgRead(const vela::MarkMsgReadArg &request, Answer<vela::MarkMsgReadResult> answer)
{
    if (!m_access.isUsable(request.userId, answer))
        return;
    const MessageFilter choice = choiceOf(request);
    const MessageMarks marks{request.inPages, request.inTray, request.inRecent};
    if (!marks.pages && !marks.tray && !marks.recent)
        return answer.fail(
            ServiceError::InvalidArgument, QStringLiteral("Nothing says where they are read."));
    const TableResult known = m_messages.find(choice.messageIds);
    const TableResult changed = m_queries.markRead(choice, marks);
    if (!m_access.worked(known, answer) || !m_access.worked(changed, answer))
        return;
    vela::MarkMsgReadResult result;
    QStringList unknown = choice.messageIds;
    for (const QStringList &row : known.rows)
        unknown.removeAll(MessageTable::fromRow(row).messageId);
    for (const QString &id : unknown)
        result.failedItems[id.toStdString()] =
            wire::errorInfo(ServiceError::NotFound, QStringLiteral("There is no such message."));
    for (const QStringList &row : changed.rows)
        result.items.push_back(changedItem(row));
    result.unreadCount = unreadCount();
    answer.send(result);
    tellChanged(result.items, result.unreadCount);
}

void MessageMethods::deleteMsg(const vela::DeleteMsgArg &request, Answer<vela::DeleteMsgResult> answer)
{
    if (!m_access.isUsable(request.userId, answer))
        return;
    const MessageFilter choice = choiceOf(request);
    // An empty request is more likely a mistake than the wish to lose everything.
    if (choosesAll(choice))
        return answer.fail(ServiceError::InvalidArgument, QStringLiteral("Nothing says which messages."));
    const TableResult removed = m_queries.remove(choice);
    if (!m_access.worked(removed, answer))
        return;
    vela::DeleteMsgResult result;
    std::vector<vela::MsgStatusChangedItem> items;
    QStringList unknown = choice.messageIds;
    for (const QStringList &row : removed.rows) {
        unknown.removeAll(row.value(0));
        result.messageIds.push_back(row.value(0).toStdString());
        items.push_back(changedItem(row));
        items.back().deleted = true;
    }
    for (const QString &id : unknown)
        result.failedItems[id.toStdString()] =
            wire::errorInfo(ServiceError::NotFound, QStringLiteral("There is no such message."));
    result.unreadCount = unreadCount();
    answer.send(result);
    tellChanged(items, result.unreadCount);
}

qint64 MessageMethods::unreadCount()
{
    const TableResult counts = m_queries.counts({});
    return counts.ok() && !counts.rows.isEmpty() ? counts.rows.first().value(1).toLongLong() : 0;
}

void MessageMethods::tell(const MessageNews &news)
{
    if (!news.stored.isEmpty())
        tellStored(news.stored);
    std::vector<vela::MsgStatusChangedItem> changed;
    for (const QStringList &row : news.changed)
        changed.push_back(changedItem(row));
    tellChanged(changed, unreadCount());
}

void MessageMethods::tellStored(const QVector<Message> &messages)
{
    const auto isRoaming = [](const Message &one) { return one.topic == QLatin1String("zel.roaming"); };
    if (std::any_of(messages.begin(), messages.end(), isRoaming))
        m_pushes.push("notifyActionsMap", actions(QStringLiteral("NewRoamingMsgArrive"), {}));
    if (!std::all_of(messages.begin(), messages.end(), isRoaming))
        m_pushes.push("notifyActionsMap", actions(QStringLiteral("NewMsgArrive"), {}));
    vela::NotifyMsgListArg list;
    for (auto message = messages.rbegin(); message != messages.rend(); ++message) {
        list.newMsgList.push_back(message->messageId.toStdString());
        if (list.newMsgList.size() > MostContents)
            continue;
        list.messages.push_back(toMessageItem(*message));
        list.newMessages.push_back(toNewMessageItem(*message));
    }
    list.userId = m_account.userId().toStdString();
    list.unreadCount = int32_t(unreadCount());
    m_pushes.push("notifyMsgList", list);
}

void MessageMethods::tellChanged(const std::vector<vela::MsgStatusChangedItem> &items, qint64 unread)
{
    if (items.empty())
        return;
    vela::NotifyMsgStatusChangedArg changed;
    changed.items = items;
    changed.userId = m_account.userId().toStdString();
    changed.unreadCount = int32_t(unread);
    m_pushes.push("notifyMsgStatusChanged", changed);
}

vela::NotifyActionsMapArg MessageMethods::actions(const QString &command, const QJsonObject &values) const
{
    vela::NotifyActionsMapArg record;
    record.actionsMap[command.toStdString()] =
        QJsonDocument(values).toJson(QJsonDocument::Compact).toStdString();
    record.userId = m_account.userId().toStdString();
    return record;
}

} // namespace zel::service
