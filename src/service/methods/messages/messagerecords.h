#pragma once

#include "service/tables/messagetable.h"

#include "message_types.h"

/// Messages between the table and the link. Pure functions. What has no column of its own goes through
/// Message::extra, a JSON object.
namespace zel::service {

Message toMessage(const vela::NewMessageItem &item, const std::string &category);
vela::NewMessageItem toNewMessageItem(const Message &message);
vela::MessageItem toMessageItem(const Message &message);

void setWaitsForUpdate(Message &message, bool waits);

} // namespace zel::service
