#pragma once

#include "service/dispatch/methodtable.h"
#include "service/dispatch/pushes.h"
#include "service/methods/messages/messagequeries.h"
#include "service/methods/messages/tableaccess.h"
#include "service/tables/commandprocessor.h"

#include "common_types.h"
#include "message_types.h"
#include "notify_types.h"

namespace zel::service {

struct MessageNews;

/// The methods that change the message and radar tables, and the pushes that tell of their changes. Main
/// thread.
///
/// - zelBoxAsynCommandLine is answered first; what the command gives follows as "notifyActionsMap" pushes
/// with one
///   entry each, command name -> JSON text (see CommandProcessor).
/// - "MessageDbLoadFinish" tells a client that the tables can be read; "NewMsgArrive" or, for the topic
/// "zel.roaming",
///   "NewRoamingMsgArrive" that a message came, with "notifyMsgList" beside it; "notifyMsgStatusChanged"
///   which marks changed or which messages are gone.
class MessageMethods
{
public:
    /// `database` outlives this; its owner must be asked for before the first use.
    MessageMethods(CloudDatabase &database, AccountState &account, Pushes &pushes);
    void serve(MethodTable &methods); ///< outlives the table's use

    void greet(ClientId client);        ///< one that has just connected
    void tellReloaded();                ///< the tables can be read, perhaps with other contents than before
    void tell(const MessageNews &news); ///< of messages that others put into the table
    wire::ServiceError setMessageWaits(const QString &messageId, bool waits);

private:
    void zelBoxAsynCommandLine(
        const vela::ZelBoxAsynCommandLineArg &request, Answer<vela::ZelBoxAsynCommandLineResult> answer);
    void storeZelBoxMessage(
        const vela::StoreZelBoxMessageArg &request, Answer<vela::StoreZelBoxMessageResult> answer);
    void markMsgRead(const vela::MarkMsgReadArg &request, Answer<vela::MarkMsgReadResult> answer);
    void deleteMsg(const vela::DeleteMsgArg &request, Answer<vela::DeleteMsgResult> answer);

    qint64 unreadCount();
    void tellStored(const QVector<Message> &messages); ///< newest last
    void tellChanged(const std::vector<vela::MsgStatusChangedItem> &items, qint64 unread);
    vela::NotifyActionsMapArg actions(const QString &command, const QJsonObject &values) const;

    CloudDatabase &m_database;
    AccountState &m_account;
    TableAccess m_access;
    Pushes &m_pushes;
    RadarTable m_radar;
    MessageTable m_messages;
    SwitchTable m_switches;
    MessageQueries m_queries;
    CommandProcessor m_commands;
};

} // namespace zel::service
