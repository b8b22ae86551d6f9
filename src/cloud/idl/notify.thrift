/** Pushes of the service: what changed without being asked for, and requests to the client's windows. */
include "common.thrift"
include "account.thrift"
include "group.thrift"
include "recent.thrift"
include "recycle.thrift"
include "document.thrift"
include "message.thrift"
include "favorite.thrift"
namespace cpp zel.vela
namespace py zelwire.notify

/** Asks one of the client's windows to do something. */
struct NotifyActionArg {
  1: string action,                          // "activateWindow", "addBrowserPage", "addPlumePage"
  2: string targetWindow,                    // identity of the window, "mainbox" for the box; empty: any
  3: map<string, string> params,             // of the action: "url", "title", "callFrom" …
  4: map<string, string> extraParam,
}

/** Commands to the client: rows of a statement, and what the radar and the message table report. */
struct NotifyActionsMapArg {
  1: map<string, string> actionsMap,         // command name -> JSON: "commandline", "guid", "setting", "BackupType"
  2: string userId,                          // whose tables the rows come from
  3: map<string, string> extraParam,
}

/** The set of folders that go up by themselves changed. */
struct NotifyAutoUpdateFoldersChangedArg {
  1: string userId,
  2: list<string> addedPaths,                // local folders
  3: list<string> removedPaths,
  4: list<string> folderPaths,               // the whole set after the change
  5: map<string, string> extraParam,
}

/** How far the automatic update of one folder or file got. */
struct NotifyAutoUpdateStatusArg {
  1: common.CloudItemId item,
  2: string localPath,
  3: i32 status,                             // 0 idle, 1 checking, 2 running, 3 done, 4 paused, 5 failed
  4: i32 doneCount,                          // files
  5: i32 totalCount,
  6: common.ServerErrorInfo errorInfo,       // of status 5
  7: map<string, string> extraParam,
}

/** Asks the client to show a folder of the cloud. */
struct NotifyBroswerFolderArg {
  1: common.CloudItemId folder,
  2: string folderName,
  3: list<common.CloudItemPathInfo> steps,   // root first, the folder last
  4: string selectId,                        // item to select in it; empty: none
  5: string callFrom,                        // who wished it: "tray", "message", "search" …
  6: map<string, string> extraParam,
}

/** Messages were read or removed elsewhere: take their bubbles and tray marks away. */
struct NotifyClearMsgNotificationArg {
  1: list<string> msgIds,                    // empty: all of the category
  2: string category,
  3: string userId,
  4: map<string, string> extraParam,
}

/** Asks the client to close the window of official templates. */
struct NotifyCloseOfficialTemplateWindowArg {
  1: string windowId,                        // empty: whichever is open
  2: string reason,                          // "used", "cancelled", "logout"
  3: string templateId,                      // the template taken, with reason "used"
  4: map<string, string> extraParam,
}

/** Asks the client to close the window in which a local folder was chosen for sync. */
struct NotifyCloseSyncLocalFolderWindowArg {
  1: string windowId,                        // empty: whichever is open
  2: string localPath,                       // the folder that was asked about
  3: i32 choice,                             // 0 cancelled, 1 synced, 2 failed
  4: common.ServerErrorInfo errorInfo,       // of choice 2
  5: map<string, string> extraParam,
}

/** New events in a group or folder. */
struct NotifyCloudEventsArg {
  1: list<message.CloudEventItem> events,    // newest first
  2: string groupId,                         // empty: of several groups
  3: i32 unreadCount,                        // in the group after these
  4: i64 dataVersion,                        // highest among the events
  5: map<string, string> extraParam,
}

/** The user became a member of a company. */
struct NotifyCompanyCreationArg {
  1: group.CompanyItem company,
  2: string operatorId,
  3: i64 ctime,
  4: map<string, string> extraParam,
}

/** The user left a company, or it was dissolved. */
struct NotifyCompanyDeletionArg {
  1: string companyId,
  2: string companyName,
  3: string operatorId,
  4: bool dissolved,                         // false: only this user left
  5: i64 mtime,
  6: map<string, string> extraParam,
}

/** Name, picture or settings of a company changed. */
struct NotifyCompanyPropertyArg {
  1: group.CompanyItem company,              // after the change
  2: list<string> changedFields,             // field names of the record; empty: any
  3: i64 mtime,
  4: map<string, string> extraParam,
}

/** Who edits a document at this moment changed. */
struct NotifyDocCollaborativeStatusArg {
  1: list<document.DocCollaborativeInfo> infos,
  2: i64 mtime,
  3: map<string, string> extraParam,
}

/** Members or rights of a team document of the second generation changed. */
struct NotifyDocTeamV2Arg {
  1: string groupId,
  2: string fileId,
  3: i32 action,                             // 1 joined, 2 left, 3 rights changed, 4 handed over, 5 dissolved
  4: list<group.DocteamUserV2> users,        // those concerned
  5: common.UserAclV2 acl,                   // of the signed-in user after the change
  6: string operatorId,
  7: i64 mtime,
  8: map<string, string> extraParam,
}

/** Files were dragged onto a chat window: what is to be shared with whom. */
struct NotifyDrag2ImInfoArg {
  1: list<string> localPaths,
  2: list<common.CloudItem> items,           // those of the paths that lie in the cloud
  3: i32 imType,                             // 1 QQ and TIM, 2 WeChat
  4: string chatName,                        // title of the chat window
  5: i32 x,                                  // drop point, device pixels of the virtual desktop
  6: i32 y,
  7: map<string, string> extraParam,
}

/** Something was done to one file. */
struct NotifyFileActionArg {
  1: string action,                          // "open", "close", "save", "rename", "move", "remove", "share"
  2: common.CloudItem item,                  // after the action
  3: string oldName,                         // with "rename"
  4: string oldParentId,                     // with "move"
  5: string operatorId,
  6: i64 mtime,
  7: map<string, string> extraParam,
}

/** How far an action on many files got. */
struct NotifyFileBatchActionArg {
  1: string taskId,
  2: string action,                          // "copy", "move", "remove", "recover", "upload", "download"
  3: i32 state,                              // 1 running, 2 done, 3 done in part, 4 failed, 5 cancelled
  4: i32 doneCount,
  5: i32 totalCount,
  6: list<common.CloudItem> doneItems,       // since the last push of the task
  7: map<string, common.ServerErrorInfo> failedItems, // by item id
  8: string targetGroupId,                   // with "copy", "move", "recover"
  9: string targetParentId,
  10: map<string, string> extraParam,
}

/** A file or folder was created in the cloud. */
struct NotifyFileCreationArg {
  1: common.CloudItem item,
  2: string localPath,                       // what was uploaded; empty when created in the cloud
  3: string taskId,                          // of the upload; empty when there was none
  4: string creatorId,
  5: string source,                          // "upload", "create", "copy", "radar", "backup", "other device"
  6: map<string, string> extraParam,
}

/** Rows of the local file index changed. */
struct NotifyFileIndexRecordsChangedArg {
  1: list<string> addedPaths,
  2: list<string> removedPaths,
  3: list<string> changedPaths,
  4: bool rebuilt,                           // the whole index is new; the lists are empty then
  5: i64 recordCount,                        // after the change
  6: map<string, string> extraParam,
}

/** Name, place, rights or content of cloud items changed. */
struct NotifyFilePropertyArg {
  1: list<common.CloudItem> items,           // after the change
  2: list<string> changedFields,             // field names of the record; empty: any
  3: string operatorId,
  4: map<string, string> extraParam,
}

/** Transfer states of files that a list shows. */
struct NotifyFileStateListArg {
  1: list<common.CloudItem> items,           // fileState, taskId, progress and averageSpeed are current
  2: string userId,
  3: map<string, string> extraParam,
}

/** Thumbnails were made or renewed. */
struct NotifyFileThumbnailArg {
  1: list<document.FileThumbnailEntry> thumbnails,
  2: list<string> failedFileIds,             // no picture can be made of these
  3: map<string, string> extraParam,
}

/** State of one transfer task. */
struct NotifyFileTransferArg {
  1: string taskId,
  2: i32 transferType,                       // as TransferOpertionInfo.transferType
  3: i32 transferState,                      // 1 waits, 2 runs, 3 paused, 4 done, 5 failed, 6 cancelled
  4: i32 progress,                           // 0 to 100
  5: i64 doneSize,
  6: i64 size,
  7: double averageSpeed,                    // bytes in a second
  8: i64 remainingTime,                      // ms, -1 when not known
  9: string localPath,
  10: common.CloudItem item,                 // an empty id until an upload made it
  11: common.ServerErrorInfo errorInfo,      // of state 5
  12: i64 mtime,                             // when its state changed last
  13: map<string, string> extraParam,
}

/** Where an item named by an event lies, so that the client can show it. */
struct NotifyGetCloudEventsPathArg {
  1: string eventId,
  2: string groupId,
  3: string fileId,
  4: common.ItemPathInfoV5 path,
  5: common.ServerErrorInfo errorInfo,       // filled when the item is gone or may not be seen
  6: map<string, string> extraParam,
}

/** A group was created, or the user joined one. */
struct NotifyGroupCreationArg {
  1: group.GroupInfo groupInfo,
  2: bool joined,                            // false: created by this user
  3: string operatorId,
  4: map<string, string> extraParam,
}

/** A group was dissolved, or the user left it. */
struct NotifyGroupDeletionArg {
  1: string groupId,
  2: string groupName,
  3: bool dissolved,                         // false: only this user left
  4: string operatorId,
  5: i64 mtime,
  6: map<string, string> extraParam,
}

/** Name, members or settings of a group changed. */
struct NotifyGroupPropertyArg {
  1: group.GroupInfo groupInfo,              // after the change
  2: list<string> changedFields,             // field names of the record, or "members"; empty: any
  3: list<group.GroupMemberInfo> members,    // those concerned, when the members changed
  4: string operatorId,
  5: map<string, string> extraParam,
}

/** Reminders of items were switched on or off. */
struct NotifyItemReminderChangedArg {
  1: list<message.ReminderItemInfo> items,   // after the change
  2: string userId,
  3: map<string, string> extraParam,
}

/** The favorites were read anew, or changed elsewhere. */
struct NotifyLoadFavoriteArg {
  1: list<favorite.FavoriteItem> added,
  2: list<favorite.FavoriteItem> changed,
  3: list<string> removedIds,
  4: bool reload,                            // too much changed: fetch the list again; the lists are empty then
  5: i64 revision,
  6: map<string, string> extraParam,
}

/** New messages arrived. */
struct NotifyMsgListArg {
  1: list<string> newMsgList,                // ids, newest first
  2: list<message.MessageItem> messages,     // those of the ids whose content is at hand
  3: list<message.NewMessageItem> newMessages,
  4: string userId,
  5: i32 unreadCount,                        // all of the user after these
  6: map<string, string> extraParam,
}

/** Messages were read, removed or marked, here or elsewhere. */
struct NotifyMsgStatusChangedArg {
  1: list<message.MsgStatusChangedItem> items,
  2: string userId,
  3: i32 unreadCount,                        // all of the user after the change
  4: map<string, string> extraParam,
}

/** Entries of the recent list changed. */
struct NotifyRecentFileChangeArg {
  1: list<recent.RecentFileItem> changedItems,   // new or changed
  2: list<string> removedIds,                // roaming ids
  3: bool reload,                            // too much changed: fetch the list again; the lists are empty then
  4: string opv,                             // version of the list after the change
  5: string userId,
  6: map<string, string> extraParam,
}

/** A fetch of the recent list from the cloud began or ended. */
struct NotifyRecentFileFetchArg {
  1: i32 status,                             // 1 began, 2 done, 3 failed
  2: i32 fetchedCount,
  3: bool changed,                           // the list differs from before the fetch
  4: bool hasMore,
  5: common.ServerErrorInfo errorInfo,       // of status 3
  6: string userId,
  7: map<string, string> extraParam,
}

/** The recommended documents changed. */
struct NotifyRecommendUpdateArg {
  1: list<favorite.RecommendItem> items,     // the whole list, best first
  2: string scene,                           // which list: "recent", "startpage", "search"
  3: i64 revision,
  4: map<string, string> extraParam,
}

/** The recycle bin changed. */
struct NotifyRecycleBinArg {
  1: i32 action,                             // 1 items came in, 2 recovered, 3 destroyed, 4 emptied
  2: string groupId,                         // the space it belongs to; "0" is the user's own
  3: list<recycle.RecycleBinItem> items,     // those that came in
  4: list<string> removedIds,                // those that went; empty with action 4
  5: i64 total,                              // in the bin after the change
  6: map<string, string> extraParam,
}

/** How far smart sync of a folder got. */
struct NotifySmartSyncArg {
  1: common.CloudItemId folder,
  2: string localPath,
  3: i32 status,                             // 0 off, 1 preparing, 2 running, 3 done, 4 paused, 5 failed
  4: i32 doneCount,                          // files
  5: i32 totalCount,
  6: i64 doneSize,
  7: i64 totalSize,
  8: common.ServerErrorInfo errorInfo,       // of status 5
  9: map<string, string> extraParam,
}

/** The service made a folder for smart sync by itself. */
struct NotifySmartSyncFolderAutoCreatedArg {
  1: common.CloudItem folder,
  2: string localPath,
  3: string userId,
  4: map<string, string> extraParam,
}

/** Newer versions of documents in use lie in the cloud. */
struct NotifySmartUpdateArg {
  1: list<common.CloudItem> items,           // with the newer cloudVersion
  2: map<string, i64> localVersions,         // fileId -> version of the local copy
  3: i32 status,                             // 1 available, 2 fetched, 3 conflict with local changes, 4 failed
  4: common.ServerErrorInfo errorInfo,       // of status 4
  5: map<string, string> extraParam,
}

/** Membership, login state or other facts about the user changed. */
struct NotifyUserGenericInfoArg {
  1: string infoKey,                         // "vipInfo", "loginStatus"
  2: map<string, string> info,               // all values under the key after the change
  3: string userId,
  4: map<string, string> extraParam,
}

/** Name, picture or companies of a user changed. */
struct NotifyUserInfoArg {
  1: common.UserData user,
  2: bool isSelf,                            // the signed-in user
  3: list<group.CompanyItem> companies,      // of the signed-in user only
  4: i64 mtime,
  5: map<string, string> extraParam,
}

/** Pictures of users were fetched or changed. */
struct NotifyUserThumbnailArg {
  1: list<account.UserThumbnailEntry> thumbnails,
  2: list<string> failedUserIds,             // no picture could be fetched for these
  3: map<string, string> extraParam,
}

/** Says which commands were handed to all connected clients. */
struct NotifyAllClientActionsMapResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, string> actionsMap,         // as in NotifyActionsMapArg; what was handed on
  4: i32 clientCount,                        // clients that it went to
  5: map<string, string> extraParam,
}

/** Ends the smart selection and says what was selected. */
struct NotifyQuitSmartSelectResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool wasActive,                         // false: there was nothing to end
  4: list<common.CloudItemId> selectedItems,
  5: list<string> selectedPaths,             // local files
  6: map<string, string> extraParam,
}
