/** Keeping folders, the desktop and settings the same here and in the cloud, and which workspace that happens in. */
include "common.thrift"
namespace cpp zel.vela
namespace py zelwire.sync

/** A settings file as the cloud keeps it. */
struct SyncSettingsFileObj {
  1: string name,                            // with its folders, "zelbox/searchRecord.json"
  2: i64 revision,                           // of the last change; grows over all files of the user
  3: i64 size,
  4: string sha1,                            // of the content, lower-case hex
  5: i64 mtime,
  6: bool deleted,
  7: string deviceId,                        // where it was changed last
}

/** One change of a settings file. */
struct SyncSettingsLogObj {
  1: i64 revision,
  2: string name,
  3: string operation,                       // "push", "remove"
  4: i64 size,
  5: i64 mtime,
  6: string deviceId,
  7: string deviceName,
}

/** The icon with which a company marks one kind of file. */
struct WorkspaceCompanyFileIconItem {
  1: string fileType,                        // suffix without the dot, or "folder"
  2: string iconUrl,
  3: string overlayUrl,                      // small mark drawn over the ordinary icon; may be empty
}

/** A company whose workspace the user may enter. */
struct WorkspaceCompanyItem {
  1: string companyId,
  2: string companyName,
  3: string logoUrl,
  4: string rootGroupId,                     // the space that every member sees
  5: i32 status,                             // 0 left, 1 entered, 2 waits for approval, 3 frozen
  6: string userRole,                        // "owner", "admin", "member" or "guest"
  7: list<WorkspaceCompanyFileIconItem> fileIcons,
  8: i64 mtime,                              // of the last change of status
  9: map<string, string> extraParam,
}

/** Has items of the cloud kept as local copies that follow by themselves, or ends that. */
struct AutoSyncArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // files or folders
  3: bool enable,
  4: string localPath,                       // folder for the copies; empty for the cache
  5: map<string, string> extraParam,
}

/** The items as they are followed now. */
struct AutoSyncResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // changed ones
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> taskIds,            // item id -> transfer task that it caused
  6: map<string, string> extraParam,
}

/** Ends the sync of folders; the files stay on both sides unless told otherwise. */
struct CancelSyncArg {
  1: string userId,
  2: list<common.CloudItemId> folders,
  3: bool removeLocal,                       // puts the local folder into the system's recycle bin
  4: bool removeCloud,                       // puts the cloud folder into the cloud's recycle bin
  5: map<string, string> extraParam,
}

/** Which folders are no longer synced. */
struct CancelSyncResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> cancelledIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by folder id
  5: list<string> unsyncedPaths,             // local files whose last change is not in the cloud
  6: map<string, string> extraParam,
}

/** Enters or leaves the workspace of a company. */
struct ChangeWorkspaceStatusArg {
  1: string userId,
  2: string companyId,                       // empty for the private workspace
  3: bool enter,
  4: string callFrom,                        // "setting", "guide", "message"
  5: map<string, string> extraParam,
}

/** The workspace after the change. */
struct ChangeWorkspaceStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string currentCompanyId,                // empty for the private workspace
  4: WorkspaceCompanyItem company,
  5: bool restartNeeded,                     // open windows keep the old workspace until a restart
  6: map<string, string> extraParam,
}

/** Asks whether something stands against turning the desktop sync on or off. */
struct CheckDesktopSyncSwitchConflictArg {
  1: string userId,
  2: string desktopPath,
  3: bool enable,                            // what is about to be done
  4: map<string, string> extraParam,
}

/** What stands against it. */
struct CheckDesktopSyncSwitchConflictResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 conflictType,                       // 0 none, 1 another device, 2 another user here, 3 another synced folder
  4: string conflictDeviceId,                // with type 1
  5: string conflictDeviceName,              // with type 1
  6: string conflictUserName,                // with type 2
  7: string conflictPath,                    // with type 3: the folder that holds the desktop or lies in it
  8: bool canTakeOver,                       // turning on may end the other sync
  9: map<string, string> extraParam,
}

/** Asks whether the desktop sync that is on does its work. */
struct CheckDesktopSyncWorkWellArg {
  1: string userId,
  2: string desktopPath,
  3: bool repair,                            // have the service mend what it can
  4: map<string, string> extraParam,
}

/** What hinders the desktop sync. */
struct CheckDesktopSyncWorkWellResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool workWell,
  4: list<string> problems,                  // "offline", "spaceFull", "noAccess", "folderMissing", "watchLimit"
  5: list<string> repairedProblems,
  6: i64 lastSyncTime,                       // ms since 1970 UTC; 0 never
  7: map<string, string> extraParam,
}

/** Asks how the sync of one folder stands. */
struct GetSyncFolderInfoArg {
  1: string userId,
  2: common.CloudItemId folder,              // either this
  3: string localPath,                       // or this
  4: map<string, string> extraParam,
}

/** How the sync of the folder stands. */
struct GetSyncFolderInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notFound" when the folder is not synced
  3: common.CloudItem folder,
  4: string localPath,
  5: i32 syncState,                          // 0 off, 1 preparing, 2 running, 3 done, 4 paused, 5 failed
  6: i64 fileCount,
  7: i64 syncedCount,
  8: i64 failedCount,
  9: i64 totalSize,
  10: i64 syncedSize,
  11: i64 lastSyncTime,
  12: string deviceId,                       // whose local folder it is
  13: map<string, string> extraParam,
}

/** Lists the folders below a synced one, for choosing which of them take part. */
struct GetSyncSubFolderInfoArg {
  1: string userId,
  2: common.CloudItemId folder,
  3: string localPath,                       // instead of the id, when the folder is not in the cloud yet
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The folders below and whether they take part. */
struct GetSyncSubFolderInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> folders,         // syncFolder says whether it takes part, size is of all in it
  4: map<string, string> localPaths,         // by folder id
  5: map<string, i64> fileCounts,            // by folder id
  6: i64 total,
  7: map<string, string> extraParam,
}

/** Asks which workspaces the user may enter. */
struct GetWorkspaceStatusArg {
  1: string userId,
  2: bool withFileIcons,
  3: map<string, string> extraParam,
}

/** The workspaces and the one in use. */
struct GetWorkspaceStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string currentCompanyId,                // empty for the private workspace
  4: list<WorkspaceCompanyItem> companies,
  5: map<string, string> extraParam,
}

/** Asks what the desktop sync would carry if it were turned on. */
struct QueryDesktopPreSyncFileArg {
  1: string userId,
  2: string desktopPath,
  3: i32 offset,
  4: i32 count,
  5: map<string, string> extraParam,
}

/** What would be carried. */
struct QueryDesktopPreSyncFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> filePaths,                 // of this page, by name
  4: list<string> skippedPaths,              // too large, excluded or unreadable; whole list with offset 0
  5: i64 total,                              // files
  6: i64 totalSize,
  7: i64 freeSize,                           // left in the user's space
  8: map<string, string> extraParam,
}

/** Asks how the desktop sync stands. */
struct QueryDesktopSyncStateArg {
  1: string userId,
  2: string callFrom,                        // "radar", "mainbox"
  3: map<string, string> extraParam,
}

/** How the desktop sync stands. */
struct QueryDesktopSyncStateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 syncState,                          // 0 off, 1 runs, 2 done, 3 some failed, 4 preparing, 5 paused, 6 unknown
  4: i32 remainingCount,                     // files that still wait, or failed with state 3; pushed as second value
  5: i64 syncedCount,
  6: i64 total,
  7: i64 lastSyncTime,
  8: map<string, string> extraParam,
}

/** Asks whether the desktop sync is turned on. */
struct QueryDesktopSyncSwitchStateArg {
  1: string userId,
  2: map<string, string> extraParam,
}

/** Whether the desktop sync is turned on, and where. */
struct QueryDesktopSyncSwitchStateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool enabled,
  4: string desktopPath,
  5: common.CloudItemId folder,              // the cloud's counterpart
  6: list<string> deviceIds,                 // all devices of the user that sync their desktop
  7: i64 mtime,                              // when it was turned on or off
  8: map<string, string> extraParam,
}

/** Lists the files that the desktop sync has carried. */
struct QueryDesktopSynchronizedFileArg {
  1: string userId,
  2: string deviceId,                        // empty for this one
  3: i32 fileState,                          // as CloudItem.fileState; -1 for all
  4: i32 orderBy,                            // 0 name, 1 mtime newest first, 2 size largest first
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The files that the desktop sync has carried. */
struct QueryDesktopSynchronizedFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // cache is the path on the desktop
  4: i64 total,
  5: i64 totalSize,
  6: map<string, string> extraParam,
}

/** Asks how many folders the user may sync without membership. */
struct QuerySyncFolderFreeLimitPrivilegeArg {
  1: string userId,
  2: map<string, string> extraParam,
}

/** How much the user may sync. */
struct QuerySyncFolderFreeLimitPrivilegeResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool privileged,                        // beyond the limit for free, by membership or offer
  4: string privilegeId,                     // an offer that may be taken; empty when there is none
  5: i32 folderLimit,                        // -1 no limit
  6: i32 folderCount,                        // in use
  7: i64 sizeLimit,                          // bytes of one file; -1 no limit
  8: i64 expireTime,                         // of the privilege; 0 never
  9: map<string, string> extraParam,
}

/** Has items follow the cloud by themselves or not. */
struct SetAutoUpdateArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // files, folders or groups
  3: bool autoUpdate,
  4: map<string, string> extraParam,
}

/** The items after the change. */
struct SetAutoUpdateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // changed ones
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Chooses the cloud folder that backups go to. */
struct SetCurrentAutoBackupLocationArg {
  1: string userId,
  2: i32 backupType,                         // 0 all, 1 QQ and TIM, 2 WeChat, 3 web download, 4 desktop
  3: common.CloudItemId folder,              // id empty for the service's own folder
  4: bool moveBackups,                       // take along what was backed up so far
  5: map<string, string> extraParam,
}

/** The cloud folder that backups go to now. */
struct SetCurrentAutoBackupLocationResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem folder,
  4: common.ItemPathInfoV5 path,
  5: string taskId,                          // of the move; empty when nothing is moved
  6: map<string, string> extraParam,
}

/** Has a cloud folder shown locally, with contents fetched when needed. */
struct SmartSyncArg {
  1: string userId,
  2: common.CloudItemId folder,
  3: string localPath,                       // empty for the service's choice
  4: bool enable,
  5: list<string> pinnedIds,                 // items whose contents are always kept here
  6: map<string, string> extraParam,
}

/** The folder as it is shown locally. */
struct SmartSyncResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem folder,
  4: string localPath,
  5: map<string, common.ServerErrorInfo> failedItems, // of pinnedIds
  6: string taskId,                          // of the first fetch
  7: map<string, string> extraParam,
}

/** Begins to keep a local folder and a cloud folder the same. */
struct SyncFolderArg {
  1: string userId,
  2: string localPath,
  3: common.CloudItemId folder,              // id empty: a new one in parentId
  4: string name,                            // of the new one; empty for the local name
  5: list<string> excludedPaths,             // relative to localPath
  6: i32 direction,                          // 0 both ways, 1 up only, 2 down only
  7: string callFrom,                        // "setting", "menu", "dragdrop"
  8: map<string, string> extraParam,
}

/** The pair of folders. */
struct SyncFolderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem folder,
  4: string localPath,
  5: string taskId,                          // of the first run
  6: map<string, common.ServerErrorInfo> failedItems, // by relative path; those that cannot be carried
  7: map<string, string> extraParam,
}

/** Lists the settings files in the cloud. */
struct SyncSettingsListFileArg {
  1: string userId,
  2: string prefix,                          // of the names; empty for all
  3: bool withDeleted,
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The settings files by name. */
struct SyncSettingsListFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<SyncSettingsFileObj> files,
  4: i64 total,
  5: i64 revision,                           // of the newest change
  6: map<string, string> extraParam,
}

/** Lists changes of settings files since a revision. */
struct SyncSettingsListLogArg {
  1: string userId,
  2: i64 sinceRevision,                      // changes after it; 0 for all
  3: string prefix,                          // of the names; empty for all
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The changes, oldest first. */
struct SyncSettingsListLogResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<SyncSettingsLogObj> logs,
  4: i64 nextRevision,                       // sinceRevision of the next page
  5: bool hasMore,
  6: map<string, string> extraParam,
}

/** Fetches settings files. */
struct SyncSettingsPullArg {
  1: string userId,
  2: list<string> names,
  3: i64 sinceRevision,                      // leave out files that have not changed after it; 0 for all
  4: map<string, string> extraParam,
}

/** The settings files and their contents. */
struct SyncSettingsPullResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<SyncSettingsFileObj> files,
  4: map<string, string> contents,           // name -> text; none for deleted files
  5: map<string, common.ServerErrorInfo> failedItems, // by name
  6: map<string, string> extraParam,
}

/** Stores settings files; one that was changed elsewhere meanwhile is left alone. */
struct SyncSettingsPushArg {
  1: string userId,
  2: map<string, string> contents,           // name -> text
  3: map<string, i64> baseRevisions,         // name -> revision that the change builds on; 0 for a new file
  4: bool overwrite,                         // store even over changes from elsewhere
  5: map<string, string> extraParam,
}

/** The settings files as stored. */
struct SyncSettingsPushResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<SyncSettingsFileObj> files,        // stored ones
  4: list<SyncSettingsFileObj> conflictFiles, // as they were changed elsewhere
  5: map<string, common.ServerErrorInfo> failedItems, // by name; "conflict" for those of conflictFiles
  6: i64 revision,                           // of the newest change
  7: map<string, string> extraParam,
}

/** Removes settings files from the cloud. */
struct SyncSettingsRemoveArg {
  1: string userId,
  2: list<string> names,
  3: map<string, i64> baseRevisions,         // name -> revision that the asker has seen; a newer one stays
  4: map<string, string> extraParam,
}

/** What was removed. */
struct SyncSettingsRemoveResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> removedNames,
  4: map<string, common.ServerErrorInfo> failedItems, // by name
  5: i64 revision,                           // of the newest change
  6: map<string, string> extraParam,
}

/** Asks whether settings changed, without fetching them. */
struct SyncSettingsRevisionArg {
  1: string userId,
  2: list<string> names,                     // empty for the newest change of all
  3: map<string, string> extraParam,
}

/** The revisions of settings files. */
struct SyncSettingsRevisionResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 revision,                           // of the newest change of all
  4: map<string, i64> revisions,             // by name; 0 for a file that the cloud does not have
  5: i64 mtime,                              // of the newest change
  6: map<string, string> extraParam,
}

/** Turns the desktop sync on. */
struct TurnOnDesktopSyncArg {
  1: string userId,
  2: string desktopPath,
  3: string deviceName,                      // names the cloud folder
  4: bool takeOver,                          // end a sync that stands against it
  5: string callFrom,                        // "radar", "mainbox", "guide"
  6: map<string, string> extraParam,
}

/** The desktop sync as turned on. */
struct TurnOnDesktopSyncResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 syncState,                          // as QueryDesktopSyncStateResult.syncState
  4: common.CloudItem folder,                // the cloud's counterpart
  5: string taskId,                          // of the first run
  6: map<string, string> extraParam,
}

/** Takes the offer of syncing beyond the limit for free. */
struct GetFreeLimitPrivilegeArg {
  1: string userId,
  2: string privilegeId,                     // as QuerySyncFolderFreeLimitPrivilegeResult.privilegeId
  3: string callFrom,                        // "setting", "limitdialog"
  4: map<string, string> extraParam,
}

/** All synced folders of the user. */
struct GetSyncFolderItemsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> folders,
  4: map<string, string> localPaths,         // by folder id; none for folders of other devices
  5: map<string, i32> syncStates,            // by folder id, as GetSyncFolderInfoResult.syncState
  6: map<string, string> deviceNames,        // by folder id
  7: map<string, string> extraParam,
}
