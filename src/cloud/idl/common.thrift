/** Records that every area builds on: errors, users, rights, cloud items, and the two envelopes. */
namespace cpp zel.vela
namespace py zelwire.common

/** Why a request was not done; all empty when it was. */
struct ServerErrorInfo {
  1: string errResult,                       // the error's name, "notServed", "notFound" …; for programs
  2: string errString,                       // one English sentence; for the log
  3: map<string, string> extraParam,
}

/** A person as lists and messages show them. */
struct UserData {
  1: string userId,
  2: string userName,
  3: string userAvatar,                      // path or address of the picture
  4: map<string, string> extraParam,
}

/** What the asking user may do with an item or a group. */
struct UserAcl {
  1: bool canRead,
  2: bool canWrite,
  3: bool canRename,
  4: bool canMove,
  5: bool canCopy,
  6: bool canRemove,
  7: bool canCreate,                            // new items inside a folder
  8: bool canUpload,
  9: bool canDownload,
  10: bool canShare,
  11: bool canComment,
  12: bool canManage,                           // members and settings
  13: bool canSeeHistory,
  14: bool isSecret,                            // marked as confidential
  15: map<string, string> extraParam,
}

/** Rights by role, as team documents of the second generation give them. */
struct UserAclV2 {
  1: string role,                            // "owner", "admin", "editor", "reader"
  2: string roleName,
  3: list<string> permissions,               // names of the allowed actions, as the fields of UserAcl
  4: bool inherited,                         // given by the parent folder
  5: UserAcl acl,
  6: map<string, string> extraParam,
}

/** What names an item of the cloud without doubt. */
struct CloudItemId {
  1: string groupId,                         // the space it lies in; "0" is the user's own
  2: string parentId,
  3: string id,
}

/** A file, folder, group or link of the cloud as lists show it. */
struct CloudItem {
  1: string groupId,
  2: string parentId,
  3: string id,
  4: i64 size,
  5: string name,
  6: string type,                            // "file", "folder", "group" or "link"
  7: string creator,
  8: string modifier,
  9: i64 ctime,
  10: i64 mtime,
  11: string cache,                          // path of the local copy, empty when there is none
  12: bool deleted,
  13: i32 fileState,                         // 0 as in the cloud, 1 waits, 2 going up, 3 coming down, 4 failed
  14: string taskId,
  15: i32 progress,                          // 0 to 100
  16: double averageSpeed,                   // bytes in a second
  17: UserAcl userAcl,
  18: string fileId,
  19: string tipDescribe,
  20: list<string> category,
  21: i32 virtualType,                       // 0 real, else a folder that only the service makes up
  22: bool autoUpdate,
  23: i64 cloudVersion,
  24: bool syncFolder,
  25: string linkGroupId,
  26: string originType,
  27: string roamingPath,
  28: string companyId,
  29: i64 shareCTime,
  30: map<string, string> extraParam,
}

/** One step of the way from a space's root to an item. */
struct CloudItemPathInfo {
  1: string id,
  2: string name,
  3: string type,                            // as CloudItem.type
}

/** Where an item lies, from the root down. */
struct ItemPathInfoV5 {
  1: CloudItemId item,
  2: string path,                            // the names joined with "/"
  3: list<CloudItemPathInfo> steps,          // root first, the item last
  4: map<string, string> extraParam,
}

/** The folders that several items lie in. */
struct BatchParentItemsInfo {
  1: string itemId,
  2: list<CloudItem> parents,                // root first
}

/** Any method of an object in the service, with named texts as arguments. */
struct VelaIpcArg {
  1: required string nameSpace,
  2: required string method,
  3: required map<string, string> argMap,
}

/** The answer to VelaIpcArg. */
struct VelaIpcResult {
  1: i32 state,
  2: map<string, string> resultMap,
  3: list<string> resultList,
  4: string resultString,
}

/** A command line for the service itself: statements on its tables, switches. */
struct ZelBoxAsynCommandLineArg {
  1: string commandline,
  2: map<string, string> extraParam,
}

/** Says that the command line was taken; its data follows as a push. */
struct ZelBoxAsynCommandLineResult {
  1: i32 state,
  2: map<string, string> extraParam,
}

/** The first request on every connection: who asks, and in which version of the link. */
struct GetVersionArg {
  1: i32 protocolVersion,
  2: string clientName,                      // "mainbox" for the box
  3: string clientVersion,
  4: i64 processId,
  5: map<string, string> extraParam,
}

/** Accepts the connection, or says which version the service speaks. */
struct GetVersionResult {
  1: i32 state,
  2: ServerErrorInfo errorInfo,
  3: i32 protocolVersion,
  4: string serviceVersion,
  5: string deviceId,                        // of this machine and user; the same over restarts
  6: map<string, string> extraParam,
}
