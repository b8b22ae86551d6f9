/** Document messages, the events of cloud files and groups, reminders, and how far each was read. */
include "common.thrift"
include "group.thrift"
namespace cpp zel.vela
namespace py zelwire.message

/** What happened to a file. */
struct FileEventItem {
  1: string fileName,
  2: i64 fileVersion,
  3: i64 fileSize,                           // bytes
  4: i64 ext,                                // flags: 1 the first version, 2 a folder, 4 made by a link
  5: string parentId,
  6: string parentName,
  7: string oldName,                         // before a rename, else empty
  8: string userId,                          // the person concerned, for instance the one it was shared with
  9: string userName,
  10: string commentContent,
  11: map<string, string> extraParam,
}

/** What happened to a group. */
struct GroupEventItem {
  1: string groupName,
  2: string oldName,                         // before a rename, else empty
  3: list<common.UserData> members,          // those who came, left or got another role
  4: string userRole,                        // their role afterwards, as GroupInfo.userRole; empty when they left
  5: string notice,                          // the new notice, when that is what changed
  6: map<string, string> extraParam,
}

/** One entry in the history of a group or a folder. */
struct CloudEventItem {
  1: string id,
  2: string groupId,
  3: string groupName,
  4: string fileId,                          // empty for an event of the group itself
  5: string commentId,
  6: i32 type,                               // of a file: 1 create, 2 update, 3 rename, 4 move, 5 remove, 6 recover,
                                             // 7 comment, 8 share; of a group: 101 join, 102 leave, 103 role,
                                             // 104 rename, 105 notice
  7: i64 dataVersion,                        // grows with every event of the group
  8: string operatorId,
  9: string operatorName,
  10: string operatorAvatar,
  11: string operatorCorpId,
  12: FileEventItem fileEventItem,           // filled for types below 100
  13: GroupEventItem groupEventItem,         // filled for types above 100
  14: i64 ctime,
  15: i64 mtime,
  16: string mappingFolderId,                // the shared folder that stands for the group, if any
  17: bool bRead,
  18: map<string, string> extraParam,
}

/** A button under a message. */
struct MessageButtonInfo {
  1: string text,
  2: string action,                          // "openFile", "openFolder", "openUrl", "accept", "refuse" or "ignore"
  3: string target,                          // file id, folder id or address, as the action needs it
  4: bool primary,                           // the one that Return presses
}

/** The parts that every way of showing a message shares. */
struct MessageCommonTemplate {
  1: string title,
  2: string subtitle,
  3: string text,                            // with {name} where variables go
  4: string iconUrl,
  5: string pictureUrl,
  6: list<MessageButtonInfo> buttons,
  7: map<string, string> extraParam,
}

/** How a message is laid out. */
struct MessageTemplateInfo {
  1: string templateId,
  2: i32 templateType,                       // 0 one line, 1 title and text, 2 with picture, 3 with buttons
  3: i32 version,
  4: MessageCommonTemplate commonTemplate,
  5: map<string, string> variables,          // values for {name} in the texts
  6: map<string, string> extraParam,
}

/** Where and how long a message is shown. */
struct MessageCenterInfo {
  1: string channelId,
  2: string channelName,
  3: string channelIcon,
  4: i32 priority,                           // 0 silent, 1 counted, 2 shown in the tray too
  5: bool showInTray,
  6: i64 expireTime,                         // 0 for never
  7: map<string, string> extraParam,
}

/** What a message is about, and its marks. */
struct MessageDataInfo {
  1: string topic,                           // "zel.file", "zel.link", "zel.link.local" or "zel.roaming"
  2: string type,                            // kind within the topic, for instance "roaming_update"
  3: i64 time,                               // when it arrived
  4: string fileId,
  5: string fileName,
  6: string groupId,
  7: string groupName,
  8: string parentId,
  9: string companyId,
  10: string linkSid,                        // the link that it came by, if any
  11: string commentId,
  12: i64 fileVersion,
  13: group.GroupOperator messageOperator,   // the person who caused it
  14: bool trayRead,
  15: bool recentRead,                       // read in the recent tab
  16: map<string, string> extraParam,
}

/** The inside of a MessageItem. */
struct MessageContent {
  1: string title,
  2: string text,
  3: string url,                             // opened by a click; empty to open the document
  4: MessageDataInfo dataInfo,
  5: MessageTemplateInfo templateInfo,       // templateId is empty for a plain message
  6: MessageCenterInfo centerInfo,
  7: map<string, string> extraParam,
}

/** A message as the message pages list it. */
struct MessageItem {
  1: string id,
  2: string ext,                             // JSON that the sender added, handed on unread
  3: string ctime,                           // the sender's text, unchanged
  4: string category,                        // "document", "team" or "system"
  5: i32 bread,                              // 0 unread, 1 read
  6: i32 bussType,                           // 0 other, 1 file, 2 link, 3 local link, 4 roaming, 5 team
  7: MessageContent msgContent,
  8: map<string, string> extraParam,
}

/** The texts of a NewMessageItem. */
struct NewMessageContent {
  1: string title,
  2: string content,
  3: string summary,                         // one line for the tray; empty to use content
  4: string url,                             // opened by a click; empty to open the document
  5: string iconUrl,
  6: list<MessageButtonInfo> buttons,
  7: string ext,                             // JSON that the sender added, handed on unread
  8: map<string, string> extraParam,
}

/** A message as the message table keeps it. */
struct NewMessageItem {
  1: string messageId,
  2: string category,                        // as MessageItem.category
  3: string topic,                           // "zel.file", "zel.link", "zel.link.local" or "zel.roaming"
  4: string type,                            // kind within the topic: "roaming_update", "roaming_create" and others
  5: i64 time,                               // when it arrived
  6: string fileId,                          // the document it is about; may be empty
  7: string fileName,
  8: string filePath,                        // local path, when the document is on this machine
  9: string groupId,
  10: string groupName,
  11: string parentId,
  12: string companyId,
  13: string linkSid,                        // the link that it came by, if any
  14: string operatorId,                     // the person who caused it
  15: string operatorName,
  16: string operatorAvatar,
  17: string deviceId,                       // where it was caused; empty when unknown
  18: string deviceName,
  19: i64 fileVersion,
  20: bool bRead,                            // read in the message pages
  21: bool trayRead,
  22: bool recentRead,                       // read in the recent tab
  23: bool waitForUpdate,                    // kept back until its document is up to date
  24: NewMessageContent msgContent,
  25: map<string, string> extraParam,
}

/** The marks of one message after a change. */
struct MsgStatusChangedItem {
  1: string messageId,
  2: string fileId,
  3: string topic,
  4: bool bRead,
  5: bool trayRead,
  6: bool recentRead,
  7: bool deleted,
  8: i64 mtime,                              // when the marks changed
}

/** How many unread messages one key has. */
struct UnreadMsgInfo {
  1: string id,                              // the topic, file id or operator id that was counted by
  2: i32 unreadCount,
  3: i64 latestTime,                         // of the newest unread message
  4: string latestMessageId,
}

/** Names an item whose reminder is asked for. */
struct ReminderItemArgEntry {
  1: string groupId,
  2: string fileId,
  3: i32 reminderType,                       // 0 any change, 1 new versions, 2 comments
}

/** Whether changes of an item are reported, and what is new on it. */
struct ReminderItemInfo {
  1: string groupId,
  2: string fileId,
  3: i32 reminderType,                       // as ReminderItemArgEntry.reminderType
  4: bool reminderOn,
  5: i32 unreadCount,
  6: CloudEventItem latestEvent,             // its id is empty when nothing happened yet
  7: i64 mtime,                              // when the reminder was switched
  8: map<string, string> extraParam,
}

/** Asks for the reminders of several items. */
struct BatchQueryItemReminderArg {
  1: string userId,                          // empty for the signed-in user
  2: list<ReminderItemArgEntry> items,
  3: map<string, string> extraParam,
}

/** The reminders, in the order asked. */
struct BatchQueryItemReminderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<ReminderItemInfo> items,
  4: map<string, common.ServerErrorInfo> failedItems, // by file id
  5: map<string, string> extraParam,
}

/** Tells the service that another program changed the marks of messages. */
struct CallNotifyMsgStatusChangedArg {
  1: string userId,
  2: string clientName,                      // who changed them; it is not told again
  3: list<MsgStatusChangedItem> items,
  4: map<string, string> extraParam,
}

/** How many clients were told. */
struct CallNotifyMsgStatusChangedResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 notifiedCount,
  4: map<string, common.ServerErrorInfo> failedItems, // by message id, unknown messages
  5: map<string, string> extraParam,
}

/** Marks the events of groups as seen. */
struct ClearAllUnreadEventsArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> groupIds,                  // empty for all groups
  3: i64 untilTime,                          // later events stay unread; 0 for all
  4: map<string, string> extraParam,
}

/** What was cleared. */
struct ClearAllUnreadEventsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 clearedCount,                       // events that were unread before
  4: map<string, common.ServerErrorInfo> failedItems, // by group id
  5: map<string, string> extraParam,
}

/** Deletes messages: those named, or all of one document or person. */
struct DeleteMsgArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> messageIds,                // when empty, the fields below choose
  3: string fileId,
  4: string operatorId,
  5: list<string> topics,                    // narrows the choice; empty for all
  6: i64 untilTime,                          // keeps later ones; 0 for all
  7: map<string, string> extraParam,
}

/** What was deleted; a choice that matches nothing is no error. */
struct DeleteMsgResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> messageIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by message id
  5: i64 unreadCount,                        // unread messages left
  6: map<string, string> extraParam,
}

/** Lists what happened in a folder. */
struct GetFolderEventsArg {
  1: string groupId,
  2: string folderId,
  3: bool withSubfolders,
  4: list<i32> types,                        // as CloudEventItem.type; empty for all
  5: string cursor,                          // empty for the newest, else nextCursor of the answer before
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The events, newest first. */
struct GetFolderEventsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CloudEventItem> events,
  4: string nextCursor,
  5: bool hasMore,
  6: map<string, string> extraParam,
}

/** Lists what happened in a group. */
struct GetGroupEventsArg {
  1: string groupId,
  2: list<i32> types,                        // as CloudEventItem.type; empty for all
  3: string operatorId,                      // empty for everybody
  4: bool unreadOnly,
  5: string cursor,                          // empty for the newest, else nextCursor of the answer before
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The events, newest first. */
struct GetGroupEventsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CloudEventItem> events,
  4: string nextCursor,
  5: bool hasMore,
  6: i32 unreadCount,                        // of the whole group
  7: map<string, string> extraParam,
}

/** Asks which groups have something new. */
struct GetGroupUnreadEventsInfoArg {
  1: list<string> groupIds,                  // empty for all groups of the user
  2: bool withLatestEvent,                   // fills latestEvents
  3: map<string, string> extraParam,
}

/** Unread events by group. */
struct GetGroupUnreadEventsInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, i32> unreadCounts,          // by group id
  4: map<string, CloudEventItem> latestEvents, // by group id
  5: map<string, common.ServerErrorInfo> failedItems, // by group id
  6: i64 total,                              // sum of the counts
  7: map<string, string> extraParam,
}

/** Lists messages, read and unread, by what they are about. */
struct GetMsgListArg {
  1: string userId,                          // empty for the signed-in user
  2: string category,                        // as MessageItem.category; empty for all
  3: list<string> topics,                    // empty for all
  4: list<string> types,                     // kinds within the topics; empty for all
  5: string fileId,                          // empty for all documents
  6: string operatorId,                      // empty for everybody
  7: string groupId,                         // empty for all groups
  8: bool unreadOnly,
  9: i64 sinceTime,                          // 0 for no lower bound; inclusive
  10: i64 untilTime,                         // 0 for no upper bound; inclusive
  11: i32 offset,
  12: i32 count,
  13: map<string, string> extraParam,
}

/** The messages, newest first. */
struct GetMsgListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<MessageItem> messages,
  4: i64 total,                              // matching ones in the table
  5: i64 unreadCount,                        // unread ones among them
  6: map<string, string> extraParam,
}

/** Counts unread messages by topic, document or person. */
struct GetUnreadMsgCountArg {
  1: string userId,                          // empty for the signed-in user
  2: string category,                        // as MessageItem.category; empty for all
  3: list<string> topics,                    // empty for all
  4: i32 place,                              // 0 the message pages, 1 the tray, 2 the recent tab
  5: i32 groupBy,                            // 0 topic, 1 fileId, 2 operatorId
  6: list<string> ids,                       // keys to count; empty for all that have unread ones
  7: map<string, string> extraParam,
}

/** The counts; an asked id without unread messages has 0. */
struct GetUnreadMsgCountResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<UnreadMsgInfo> unreadInfos,
  4: i64 unreadCount,                        // sum of the counts
  5: map<string, string> extraParam,
}

/** Lists unread messages as the message pages show them. */
struct GetUnreadMsgListArg {
  1: string userId,                          // empty for the signed-in user
  2: string category,                        // as MessageItem.category; empty for all
  3: list<string> topics,                    // empty for all
  4: i32 place,                              // 0 the message pages, 1 the tray, 2 the recent tab
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The unread messages, newest first. */
struct GetUnreadMsgListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<MessageItem> messages,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Lists unread messages as the table keeps them, for one that follows the table. */
struct GetUnreadNewMsgListArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> topics,                    // empty for all
  3: list<string> types,                     // kinds within the topics; empty for all
  4: i32 place,                              // 0 the message pages, 1 the tray, 2 the recent tab
  5: bool latestPerFile,                     // only the newest of each document
  6: string cursor,                          // empty for the newest, else nextCursor of the answer before
  7: i32 count,
  8: map<string, string> extraParam,
}

/** The unread messages, newest first. */
struct GetUnreadNewMsgListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<NewMessageItem> messages,
  4: string nextCursor,
  5: bool hasMore,
  6: i64 unreadCount,                        // of all matching messages
  7: map<string, string> extraParam,
}

/** Marks messages as read: those named, or all of one document or person. */
struct MarkMsgReadArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> messageIds,                // when empty, the fields below choose
  3: string fileId,
  4: string operatorId,
  5: list<string> topics,                    // narrows the choice; empty for all
  6: i64 untilTime,                          // later ones stay unread; 0 for all
  7: bool inPages,                           // the places in which they count as read
  8: bool inTray,
  9: bool inRecent,
  10: map<string, string> extraParam,
}

/** The messages whose marks changed. */
struct MarkMsgReadResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<MsgStatusChangedItem> items,
  4: map<string, common.ServerErrorInfo> failedItems, // by message id
  5: i64 unreadCount,                        // left in the message pages
  6: map<string, string> extraParam,
}

/** Tells the members of a document's discussion that it was shared or went on. */
struct NotifyShareDiscussionArg {
  1: string action,                          // "share", "reply", "resolve" or "remove"
  2: string groupId,
  3: string fileId,
  4: string discussionId,
  5: string content,
  6: list<string> userIds,                   // who is told; empty for all members
  7: map<string, string> actionsMap,         // handed to the pages as it is
  8: map<string, string> extraParam,
}

/** Who was told. */
struct NotifyShareDiscussionResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> userIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by user id
  5: map<string, string> extraParam,
}

/** Sets the unread count of one group's or shared folder's events back to nothing. */
struct ResetCloudEventsUnreadCountArg {
  1: string groupId,
  2: string mappingFolderId,                 // empty for the whole group
  3: i64 dataVersion,                        // newest event that was seen; 0 for all
  4: map<string, string> extraParam,
}

/** The counts after that. */
struct ResetCloudEventsUnreadCountResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string groupId,
  4: i32 unreadCount,                        // events that came since
  5: i64 total,                              // unread events of all groups
  6: map<string, string> extraParam,
}

/** Puts a message made by a client into the message table. */
struct StoreZelBoxMessageArg {
  1: string category,                        // as MessageItem.category; goes before message.category
  2: NewMessageItem message,                 // an empty messageId gets one, a time of 0 becomes now
  3: bool replaceExisting,                   // overwrites the message of that id; else a known id is an error
  4: map<string, string> extraParam,
}

/** The message as stored. */
struct StoreZelBoxMessageResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string messageId,
  4: i64 time,
  5: bool replaced,                          // a message of that id was there before
  6: i64 unreadCount,                        // in the message pages afterwards
  7: map<string, string> extraParam,
}

/** Fetches the events that are new in the cloud. */
struct UpdateCloudEventsArg {
  1: list<string> groupIds,                  // empty for all groups of the user
  2: map<string, i64> dataVersions,          // by group id, the newest event known; a group left out starts afresh
  3: i32 count,                              // most events to take from one group
  4: map<string, string> extraParam,
}

/** The new events, oldest first. */
struct UpdateCloudEventsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CloudEventItem> events,
  4: map<string, i64> dataVersions,          // by group id, to ask with next time
  5: map<string, common.ServerErrorInfo> failedItems, // by group id
  6: bool hasMore,
  7: map<string, string> extraParam,
}

/** Works on the discussion of a document; its data follows as a push. */
struct ZelBoxAsynDiscussionArg {
  1: string taskGuid,                        // comes back in the push
  2: string action,                          // "list", "create", "reply", "resolve" or "remove"
  3: string groupId,
  4: string fileId,
  5: string discussionId,                    // empty for "list" and "create"
  6: string content,                         // of "create" and "reply"
  7: list<string> mentionedUserIds,
  8: string cursor,                          // of "list"; empty for the newest
  9: i32 count,                              // of "list"
  10: map<string, string> extraParam,
}

/** Says that the work was taken. */
struct ZelBoxAsynDiscussionResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskGuid,
  4: string discussionId,                    // the new one after "create"
  5: string nextCursor,                      // of "list": where the pushed part ends
  6: bool hasMore,
  7: map<string, string> extraParam,
}

/** Takes shown notifications of messages off the screen; the messages stay as they are. */
struct CallClearMsgNotificationArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> messageIds,                // when empty, the fields below choose
  3: string category,                        // as MessageItem.category; empty for all
  4: list<string> fileIds,                   // empty for all documents
  5: map<string, string> extraParam,
}
