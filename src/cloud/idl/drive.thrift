/** The cloud's files and folders: listing, looking up, making, renaming, moving, copying and removing items. */
include "common.thrift"
namespace cpp zel.vela
namespace py zelwire.drive

/** An item whose name is taken in the target folder, and what the user wants done about it. */
struct ConflictItem {
  1: common.CloudItemId item,                // what was to be put there
  2: string name,
  3: common.CloudItem existing,              // what has the name already
  4: string suggestedName,                   // a free name, "report (2).odt"
  5: i32 conflictPolicy,                     // the user's choice: 0 none yet, 1 keep both, 2 replace, 3 skip
  6: i64 size,                               // of what was to be put there, bytes; 0 for a folder
  7: i64 mtime,                              // likewise, ms since epoch; 0 when not known
}

/** One item of a batch and how far it is. */
struct FileActionArgEntry {
  1: common.CloudItemId item,                // as it was before the batch
  2: string name,
  3: string action,                          // "copy", "move", "remove", "recover" or "destroy"
  4: i32 entryState,                         // 0 waits, 1 runs, 2 done, 3 failed, 4 skipped
  5: common.ServerErrorInfo errorInfo,       // why it failed
  6: common.CloudItem newItem,               // as it is after the batch; empty ids until done
}

/** One change that was made to an item, for whoever shows the item or its folder. */
struct fileActionInfo {
  1: string action,                          // "create", "save", "rename", "move", "remove" or "recover"
  2: common.CloudItemId item,                // where it is now
  3: common.CloudItemId oldItem,             // where it was; the same as item unless it was moved
  4: string name,
  5: string oldName,                         // the same as name unless it was renamed
  6: string type,                            // as CloudItem.type
  7: string userId,                          // who did it
  8: i64 actionTime,
  9: i64 cloudVersion,                       // after the change
}

/** Copies items of one space to a folder, as a task of the service. */
struct BatchCopyArg {
  1: string groupId,
  2: list<string> ids,
  3: string targetGroupId,
  4: string targetParentId,
  5: i32 conflictPolicy,                     // taken names: 0 refuse, 1 keep both, 2 replace, 3 skip
  6: list<ConflictItem> conflicts,           // the user's choices for single items, before conflictPolicy
  7: map<string, string> extraParam,
}

/** The task that copies, and what is known at once; the rest by queryBatchFileOpTask. */
struct BatchCopyResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: list<common.CloudItem> items,           // the copies made so far
  5: list<ConflictItem> conflicts,           // refused because the name is taken
  6: map<string, common.ServerErrorInfo> failedItems, // by item id
  7: map<string, string> extraParam,
}

/** Moves children of one folder to another folder, as a task of the service. */
struct BatchMoveChildArg {
  1: string groupId,
  2: string parentId,
  3: list<string> ids,
  4: string targetGroupId,
  5: string targetParentId,
  6: i32 conflictPolicy,                     // as BatchCopyArg
  7: list<ConflictItem> conflicts,           // as BatchCopyArg
  8: map<string, string> extraParam,
}

/** The task that moves, and what is known at once; the rest by queryBatchFileOpTask. */
struct BatchMoveChildResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: list<common.CloudItem> items,           // moved so far, where they are now
  5: list<ConflictItem> conflicts,           // refused because the name is taken
  6: map<string, common.ServerErrorInfo> failedItems, // by item id
  7: map<string, string> extraParam,
}

/** Removes items to the recycle bin, or for good, as a task of the service. */
struct BatchRemoveArg {
  1: list<common.CloudItemId> items,
  2: bool permanent,                         // past the recycle bin; nothing brings them back
  3: map<string, string> extraParam,
}

/** The task that removes, and what is known at once; the rest by queryBatchFileOpTask. */
struct BatchRemoveResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when all was done before the answer
  4: list<string> removedIds,
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Copies items of any spaces to one folder; answered when the last one is done. */
struct CloudItemsCopyToArg {
  1: list<common.CloudItemId> items,
  2: string targetGroupId,
  3: string targetParentId,
  4: i32 conflictPolicy,                     // as BatchCopyArg
  5: list<ConflictItem> conflicts,           // as BatchCopyArg
  6: map<string, string> extraParam,
}

/** The copies, and what could not be copied. */
struct CloudItemsCopyToResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<ConflictItem> conflicts,           // refused because the name is taken
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Makes a second copy of items beside the first, each under a free name. */
struct CloudItemsDuplicateArg {
  1: list<common.CloudItemId> items,
  2: map<string, string> newNames,           // id of the item to the wished name; others get one by the service
  3: map<string, string> extraParam,
}

/** The new copies, and what could not be copied. */
struct CloudItemsDuplicateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Moves items of any spaces to one folder; answered when the last one is done. */
struct CloudItemsMoveToArg {
  1: list<common.CloudItemId> items,
  2: string targetGroupId,
  3: string targetParentId,
  4: i32 conflictPolicy,                     // as BatchCopyArg
  5: list<ConflictItem> conflicts,           // as BatchCopyArg
  6: map<string, string> extraParam,
}

/** The items where they are now, and what could not be moved. */
struct CloudItemsMoveToResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<ConflictItem> conflicts,           // refused because the name is taken
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Copies one file or folder, a folder with all that is in it. */
struct CopyArg {
  1: common.CloudItemId item,
  2: string targetGroupId,
  3: string targetParentId,
  4: string newName,                         // empty keeps the name
  5: i32 conflictPolicy,                     // as BatchCopyArg
  6: map<string, string> extraParam,
}

/** The copy, or what stands in its way. */
struct CopyResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: ConflictItem conflict,                  // filled when the name was refused
  5: map<string, string> extraParam,
}

/** Makes a file in a folder, empty or from a template or a local file. */
struct CreateFileArg {
  1: string groupId,
  2: string parentId,
  3: string name,                            // with the suffix
  4: string localPath,                       // its content; empty makes an empty file
  5: string templateId,                      // a cloud file to begin with, instead of localPath
  6: i32 conflictPolicy,                     // as BatchCopyArg
  7: map<string, string> extraParam,
}

/** The new file. */
struct CreateFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: ConflictItem conflict,                  // filled when the name was refused
  5: map<string, string> extraParam,
}

/** Makes a folder, with the folders above it where wished. */
struct CreateFolderArg {
  1: string groupId,
  2: string parentId,
  3: string name,                            // one name, or with makePath several joined with "/"
  4: bool makePath,
  5: i32 conflictPolicy,                     // 0 refuse, 1 a free name, 3 answer the folder that is there
  6: map<string, string> extraParam,
}

/** The new folder, or the one that was there. */
struct CreateFolderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: bool existed,
  5: ConflictItem conflict,                  // filled when the name was refused
  6: map<string, string> extraParam,
}

/** Asks how files stand between this machine and the cloud. */
struct FileStateArg {
  1: list<common.CloudItemId> items,
  2: list<string> localPaths,                // local copies whose item the caller does not know
  3: map<string, string> extraParam,
}

/** The items with fileState, taskId, progress and averageSpeed as they are now. */
struct FileStateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // in the order asked
  4: map<string, common.CloudItem> pathItems,  // local path to its item; paths outside the cloud are missing
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or local path
  6: map<string, string> extraParam,
}

/** Asks all that is known of one file. */
struct GetCloudFileInfoArg {
  1: string fileId,
  2: string groupId,                         // empty when the caller does not know it
  3: bool withPath,
  4: bool refresh,                           // ask the drive even when the service remembers an answer
  5: map<string, string> extraParam,
}

/** A file with its place, content and version. */
struct GetCloudFileInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: common.ItemPathInfoV5 pathInfo,         // filled when withPath was set
  5: string sha1,                            // of the content, hexadecimal; empty when not known
  6: string mimeType,
  7: common.UserData creator,
  8: common.UserData modifier,
  9: i64 cacheVersion,                       // version of the local copy; 0 when there is none
  10: bool inRecycleBin,
  11: map<string, string> extraParam,
}

/** Asks how much lies in a folder or space. */
struct GetCloudNodeFileCountArg {
  1: string groupId,
  2: string parentId,                        // the folder; empty for the space's root
  3: bool recursive,
  4: map<string, string> extraParam,
}

/** Counts and sizes of what lies in a folder, the folder itself not counted. */
struct GetCloudNodeFileCountResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 fileCount,
  4: i64 folderCount,
  5: i64 totalSize,                          // of the files, bytes
  6: map<string, string> extraParam,
}

/** Asks which item a path means. */
struct GetFileIdByFilePathArg {
  1: string filePath,
  2: i32 pathType,                           // 0 a local copy, 1 names from the space's root joined with "/"
  3: string groupId,                         // the space of a path of type 1
  4: map<string, string> extraParam,
}

/** The item of a path. */
struct GetFileIdByFilePathResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItemId item,
  4: string fileId,
  5: string type,                            // as CloudItem.type
  6: map<string, string> extraParam,
}

/** Asks for one item as lists show it. */
struct GetInfoArg {
  1: common.CloudItemId item,                // an empty id means the folder parentId, both empty the space's root
  2: bool refresh,                           // ask the drive even when the service remembers an answer
  3: map<string, string> extraParam,
}

/** One item. */
struct GetInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: map<string, string> extraParam,
}

/** Asks for the children of a folder, one page of them. */
struct GetInfoListArg {
  1: string groupId,
  2: string parentId,                        // empty for the space's root
  3: i32 offset,
  4: i32 count,                              // 0 for as many as the service gives at once
  5: string orderBy,                         // "name", "size", "type", "ctime" or "mtime"; empty for "name"
  6: bool descending,
  7: list<string> types,                     // as CloudItem.type; empty for all
  8: list<string> suffixes,                  // lower case without the dot; empty for all, folders always pass
  9: bool foldersFirst,
  10: bool showHidden,
  11: bool refresh,                          // ask the drive even when the service remembers an answer
  12: map<string, string> extraParam,
}

/** A page of a folder's children, and the folder itself. */
struct GetInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: i64 total,                              // children that pass the filters, over all pages
  5: bool hasMore,
  6: common.CloudItem folder,
  7: i64 listVersion,                        // changes with the folder; pages of one version fit together
  8: map<string, string> extraParam,
}

/** Asks for items by their ids, with the way to each where wished. */
struct GetItemInfoListV5Arg {
  1: list<common.CloudItemId> items,
  2: bool withPath,
  3: bool withParents,
  4: bool includeDeleted,                    // also those in the recycle bin
  5: map<string, string> extraParam,
}

/** The items found, and why others were not. */
struct GetItemInfoListV5Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // in the order asked
  4: list<common.ItemPathInfoV5> paths,      // filled when withPath was set; one for each of items
  5: list<common.BatchParentItemsInfo> parents,  // filled when withParents was set; one for each of items
  6: map<string, common.ServerErrorInfo> failedItems, // by item id
  7: map<string, string> extraParam,
}

/** Asks how full a space is. */
struct GetStorageInfoArg {
  1: string groupId,
  2: bool refresh,                           // measure again instead of the remembered numbers
  3: map<string, string> extraParam,
}

/** Room of a space; all in bytes, -1 where there is no limit. */
struct GetStorageInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 totalSize,
  4: i64 usedSize,
  5: i64 freeSize,
  6: i64 recycleBinSize,                     // part of usedSize
  7: i64 cacheSize,                          // local copies on this machine
  8: i64 fileSizeLimit,                      // the largest file that may be uploaded
  9: i64 measuredTime,
  10: map<string, string> extraParam,
}

/** Moves one file or folder to another folder. */
struct MoveArg {
  1: common.CloudItemId item,
  2: string targetGroupId,
  3: string targetParentId,
  4: string newName,                         // empty keeps the name
  5: i32 conflictPolicy,                     // as BatchCopyArg
  6: map<string, string> extraParam,
}

/** The item where it is now, or what stands in its way. */
struct MoveResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: ConflictItem conflict,                  // filled when the name was refused
  5: map<string, string> extraParam,
}

/** Asks how far the task of a batch is, or stops it. */
struct QueryBatchFileOpTaskArg {
  1: string taskId,
  2: bool cancel,                            // stop after the item that runs; what is done stays done
  3: i32 offset,                             // of the entries
  4: i32 count,                              // 0 for no entries, the numbers only
  5: bool failedOnly,                        // entries that failed or were skipped
  6: map<string, string> extraParam,
}

/** How far the task of a batch is. */
struct QueryBatchFileOpTaskResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,
  4: i32 taskState,                          // 0 waits, 1 runs, 2 done, 3 done in part, 4 failed, 5 cancelled
  5: i32 progress,                           // 0 to 100
  6: i32 doneCount,
  7: i32 failedCount,
  8: i32 totalCount,
  9: list<FileActionArgEntry> entries,
  10: i64 total,                             // entries that pass failedOnly, over all pages
  11: list<ConflictItem> conflicts,          // wait for the user's choice
  12: map<string, string> extraParam,
}

/** Removes one file or folder to the recycle bin, or for good. */
struct RemoveArg {
  1: common.CloudItemId item,
  2: bool permanent,                         // past the recycle bin; nothing brings it back
  3: map<string, string> extraParam,
}

/** Says that the item is gone from its folder. */
struct RemoveResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string recycleId,                       // its id in the recycle bin, for an undo; empty when permanent
  4: map<string, string> extraParam,
}

/** Gives a file or folder another name in its folder. */
struct RenameArg {
  1: common.CloudItemId item,
  2: string newName,                         // with the suffix
  3: i32 conflictPolicy,                     // as BatchCopyArg
  4: map<string, string> extraParam,
}

/** The item under its new name, or what stands in its way. */
struct RenameResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: ConflictItem conflict,                  // filled when the name was refused
  5: map<string, string> extraParam,
}

/** Puts a new version of a file's content into the cloud. */
struct UpdateArg {
  1: common.CloudItemId item,
  2: string localPath,                       // the new content
  3: i64 baseVersion,                        // cloudVersion that the content was made from; 0 takes any
  4: string comment,                         // shown in the history
  5: i64 mtime,                              // 0 for the local file's
  6: map<string, string> extraParam,
}

/** The file in its new version, or the newer one that stands in its way. */
struct UpdateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: bool versionConflict,                   // the cloud's version is not baseVersion; item is the cloud's
  5: map<string, string> extraParam,
}

/** Asks whether an item is still known to the cloud and as the caller remembers it. */
struct VerifyItemArg {
  1: common.CloudItemId item,
  2: string fileId,                          // instead of item, when that is all the caller knows
  3: i64 cloudVersion,                       // what the caller has; 0 compares nothing
  4: string sha1,                            // what the caller has; empty compares nothing
  5: map<string, string> extraParam,
}

/** Whether an item is there, and what changed; an item that is not there is no error. */
struct VerifyItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool existing,
  4: bool inRecycleBin,
  5: bool moved,                             // in another folder or under another parent than asked
  6: bool changed,                           // version or content differ from what the caller has
  7: common.CloudItem item,                  // as it is now
  8: map<string, string> extraParam,
}
