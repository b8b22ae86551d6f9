/** The recycle bin of each space: what lies in it, taking items back, and destroying them for good. */
include "common.thrift"
include "drive.thrift"
namespace cpp zel.vela
namespace py zelwire.recycle

/** A removed file or folder, and where it came from. */
struct RecycleBinItem {
  1: string recycleId,                       // its id in the recycle bin
  2: string fileId,                          // the id it had in the cloud, and has again once recovered
  3: string groupId,
  4: string parentId,                        // the folder it was removed from
  5: string name,
  6: string type,                            // "file" or "folder"
  7: i64 size,                               // bytes; of a folder all that is in it
  8: i64 ctime,
  9: i64 mtime,
  10: string originPath,                     // the names from the space's root joined with "/"
  11: bool parentExists,                     // it can go back to its place; else a target is needed
  12: string deleterId,
  13: string deleterName,
  14: i64 deleteTime,
  15: i64 expireTime,                        // when it is destroyed by itself; 0 for never
  16: common.UserAcl userAcl,                // remove: may destroy, move: may recover
  17: map<string, string> extraParam,
}

/** Destroys items of the recycle bin for good, as a task of the service. */
struct BatchDestroyRecycleFilesArg {
  1: string groupId,
  2: list<string> recycleIds,
  3: map<string, string> extraParam,
}

/** The task that destroys, and what is known at once; the rest by queryBatchFileOpTask. */
struct BatchDestroyRecycleFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: list<string> destroyedIds,              // recycle ids
  5: i64 freedSize,                          // bytes
  6: map<string, common.ServerErrorInfo> failedItems, // by recycle id
  7: map<string, string> extraParam,
}

/** Takes items out of the recycle bin to a folder of the user's choice, as a task of the service. */
struct BatchRecoverRecycleFilesArg {
  1: string groupId,
  2: list<string> recycleIds,
  3: string targetGroupId,                   // empty with targetParentId: each back to its own folder
  4: string targetParentId,
  5: i32 conflictPolicy,                     // taken names: 0 refuse, 1 keep both, 2 replace, 3 skip
  6: list<drive.ConflictItem> conflicts,     // the user's choices for single items, before conflictPolicy
  7: map<string, string> extraParam,
}

/** The task that recovers, and what is known at once; the rest by queryBatchFileOpTask. */
struct BatchRecoverRecycleFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: list<common.CloudItem> items,           // recovered so far, where they are now
  5: list<string> recoveredIds,              // recycle ids, one for each of items
  6: list<drive.ConflictItem> conflicts,     // refused because the name is taken; their item has the recycle id
  7: map<string, common.ServerErrorInfo> failedItems, // by recycle id
  8: map<string, string> extraParam,
}

/** Destroys all that lies in the recycle bin of one space; answered when it is empty. */
struct ClearRecycleBinArg {
  1: string groupId,
  2: map<string, string> extraParam,
}

/** What was destroyed. */
struct ClearRecycleBinResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 clearedCount,
  4: i64 freedSize,                          // bytes
  5: map<string, common.ServerErrorInfo> failedItems, // by recycle id
  6: map<string, string> extraParam,
}

/** Destroys what lies in several recycle bins, as a task of the service. */
struct ClearRecycleBinV5Arg {
  1: list<string> groupIds,                  // empty for all spaces that the user may clear
  2: i64 deletedBefore,                      // only what was removed earlier; 0 for all
  3: string deleterId,                       // only what this person removed; empty for all
  4: map<string, string> extraParam,
}

/** The task that destroys, and what is known at once; the rest by queryBatchFileOpTask. */
struct ClearRecycleBinV5Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: i64 clearedCount,
  5: i64 freedSize,                          // bytes
  6: map<string, common.ServerErrorInfo> failedItems, // by group id
  7: map<string, string> extraParam,
}

/** Asks for the recycle bin of one space, one page of it. */
struct GetRecycleBinListArg {
  1: string groupId,
  2: i32 offset,
  3: i32 count,                              // 0 for as many as the service gives at once
  4: string orderBy,                         // "name", "size", "type" or "deleteTime"; empty for "deleteTime"
  5: bool descending,
  6: map<string, string> extraParam,
}

/** A page of a recycle bin, and its size. */
struct GetRecycleBinListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecycleBinItem> items,
  4: i64 total,                              // items over all pages
  5: bool hasMore,
  6: i64 totalSize,                          // bytes, over all pages
  7: i32 keepDays,                           // after which items are destroyed; 0 for never
  8: map<string, string> extraParam,
}

/** Asks for what lies in several recycle bins, page after page while they change. */
struct GetRecycleBinListV5Arg {
  1: list<string> groupIds,                  // empty for all spaces of the user
  2: string keyword,                         // part of the name, case ignored; empty for all
  3: list<string> types,                     // as RecycleBinItem.type; empty for all
  4: i64 deletedAfter,                       // only what was removed later; 0 for all
  5: string orderBy,                         // as GetRecycleBinListArg
  6: bool descending,
  7: string cursor,                          // empty for the first page, else nextCursor of the answer before
  8: i32 count,                              // 0 for as many as the service gives at once
  9: map<string, string> extraParam,
}

/** A page of several recycle bins. */
struct GetRecycleBinListV5Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecycleBinItem> items,
  4: string nextCursor,                      // empty on the last page
  5: bool hasMore,
  6: i64 total,                              // items that pass the filters, over all pages
  7: map<string, common.ServerErrorInfo> failedItems, // by group id
  8: map<string, string> extraParam,
}

/** Takes items out of the recycle bin, each back to the folder it was removed from. */
struct RecoverRecyclesArg {
  1: list<string> recycleIds,                // of any spaces
  2: bool remakeParents,                     // make folders anew that are gone; else such items fail
  3: i32 conflictPolicy,                     // as BatchRecoverRecycleFilesArg
  4: map<string, string> extraParam,
}

/** The items where they are now, and what could not be recovered. */
struct RecoverRecyclesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<string> recoveredIds,              // recycle ids, one for each of items
  5: list<drive.ConflictItem> conflicts,     // refused because the name is taken; their item has the recycle id
  6: map<string, common.ServerErrorInfo> failedItems, // by recycle id
  7: map<string, string> extraParam,
}
