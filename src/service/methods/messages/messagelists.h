#pragma once

#include "service/dispatch/methodtable.h"
#include "service/methods/messages/messagequeries.h"
#include "service/methods/messages/tableaccess.h"

#include "message_types.h"

namespace zel::service {

/// The methods that list and count messages. Main thread. A list without a count gives 100 messages, and
/// never more than 1000.
class MessageLists
{
public:
    MessageLists(CloudDatabase &database, AccountState &account);
    void serve(MethodTable &methods); ///< outlives the table's use

private:
    void getMsgList(const vela::GetMsgListArg &request, Answer<vela::GetMsgListResult> answer);
    void getUnreadMsgCount(
        const vela::GetUnreadMsgCountArg &request, Answer<vela::GetUnreadMsgCountResult> answer);
    void getUnreadMsgList(
        const vela::GetUnreadMsgListArg &request, Answer<vela::GetUnreadMsgListResult> answer);
    void getUnreadNewMsgList(
        const vela::GetUnreadNewMsgListArg &request, Answer<vela::GetUnreadNewMsgListResult> answer);

    TableAccess m_access;
    MessageQueries m_queries;
};

} // namespace zel::service
