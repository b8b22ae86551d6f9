/** Bringing files to the cloud and back, the list of these tasks, and sending files between a user's devices. */
include "common.thrift"
include "drive.thrift"
namespace cpp zel.vela
namespace py zelwire.transfer

/** One file or folder to bring down, and where to. */
struct DownloadCloudFileInfo {
  1: common.CloudItemId item,
  2: string targetPath,                      // full local path with the name
  3: i64 cloudVersion,                       // 0 for the newest
  4: i32 priority,                           // higher comes first; 0 is usual
  5: bool openWhenDone,
  6: map<string, string> extraParam,
}

/** What became of bringing down one file or folder. */
struct DownloadFileInfo {
  1: common.CloudItemId item,
  2: string name,
  3: string localPath,                       // where it is or will be; its name may differ from the wished one
  4: string taskId,                          // empty when it was here already
  5: i64 size,
  6: i64 cloudVersion,
  7: i32 transferState,                      // as TransferOpertionInfo
  8: common.ServerErrorInfo errorInfo,       // why it failed
  9: map<string, string> extraParam,
}

/** One task of the transfer list. */
struct TransferOpertionInfo {
  1: string taskId,
  2: string batchId,                         // the request that the task came from
  3: i32 transferType,                       // 1 upload, 2 download, 3 copy within the cloud, 4 backup,
                                             // 5 sent to a device, 6 received from a device
  4: i32 transferState,                      // 1 waits, 2 runs, 3 paused, 4 done, 5 failed, 6 cancelled
  5: common.CloudItemId item,                // an empty id until an upload made it
  6: string name,
  7: string localPath,
  8: bool isFolder,
  9: i64 size,                               // bytes; of a folder all that is in it
  10: i64 doneSize,
  11: i32 progress,                          // 0 to 100
  12: double averageSpeed,                   // bytes in a second
  13: i64 remainingTime,                     // ms, -1 when not known
  14: i32 fileCount,                         // files of a folder; 1 for a file
  15: i32 doneCount,
  16: i32 priority,                          // higher comes first; 0 is usual
  17: i64 ctime,                             // when it was asked for
  18: i64 mtime,                             // when its state changed last
  19: bool unread,                           // ended, and the user has not seen it
  20: string deviceId,                       // the other device of types 5 and 6
  21: string deviceName,
  22: common.ServerErrorInfo errorInfo,      // why it failed
}

/** Brings the children of a cloud folder into a local folder. */
struct DownloadChildrenArg {
  1: string groupId,
  2: string parentId,                        // the cloud folder; empty for the space's root
  3: list<string> ids,                       // some children only; empty for all
  4: string targetDir,
  5: bool recursive,                         // folders too, with all that is in them
  6: i32 conflictPolicy,                     // taken names: 0 refuse, 1 keep both, 2 replace, 3 skip
  7: map<string, string> extraParam,
}

/** The tasks made, and what could not be brought down. */
struct DownloadChildrenResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<DownloadFileInfo> files,
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Brings one file down, to a place of the user's or into the local copies. */
struct DownloadCloudFileArg {
  1: common.CloudItemId item,
  2: string targetPath,                      // full path with the name, or a folder; empty for the local copies
  3: i64 cloudVersion,                       // 0 for the newest
  4: i32 conflictPolicy,                     // as DownloadChildrenArg
  5: i32 priority,                           // higher comes first; 0 is usual
  6: bool openWhenDone,
  7: bool waitUntilDone,                     // answer only when the file is there
  8: string sourcePage,                      // who asks, for the transfer list; "recent", "search" …
  9: map<string, string> extraParam,
}

/** The task that brings the file, or the file when it is there. */
struct DownloadCloudFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // empty when the file was here already
  4: string localPath,
  5: common.CloudItem item,
  6: drive.ConflictItem conflict,            // filled when the name was refused
  7: map<string, string> extraParam,
}

/** Brings several files into one local folder. */
struct DownloadCloudFilesArg {
  1: list<common.CloudItemId> items,
  2: string targetDir,                       // empty for the local copies
  3: i32 conflictPolicy,                     // as DownloadChildrenArg
  4: string sourcePage,                      // as DownloadCloudFileArg
  5: map<string, string> extraParam,
}

/** The tasks made, and what could not be brought down. */
struct DownloadCloudFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<DownloadFileInfo> files,
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Brings several files down, each to a place and in a version of its own. */
struct DownloadCloudFilesExArg {
  1: list<DownloadCloudFileInfo> files,
  2: i32 conflictPolicy,                     // as DownloadChildrenArg
  3: bool waitUntilDone,                     // answer only when the last file is there
  4: string batchId,                         // chosen by the caller; empty lets the service choose
  5: string sourcePage,                      // as DownloadCloudFileArg
  6: map<string, string> extraParam,
}

/** The tasks made in the order asked, and what could not be brought down. */
struct DownloadCloudFilesExResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<DownloadFileInfo> files,
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: map<string, string> extraParam,
}

/** Brings a cloud folder down with all that is in it, as one task. */
struct DownloadDirArg {
  1: common.CloudItemId item,
  2: string targetDir,                       // the folder is made inside it
  3: string newName,                         // empty keeps the name
  4: i32 conflictPolicy,                     // as DownloadChildrenArg; 2 also merges into a folder that is there
  5: map<string, string> extraParam,
}

/** The task that brings the folder, and its extent. */
struct DownloadDirResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,
  4: string localPath,
  5: i32 fileCount,
  6: i64 totalSize,                          // bytes
  7: drive.ConflictItem conflict,            // filled when the name was refused
  8: map<string, string> extraParam,
}

/** Brings files and folders into one local folder, whole folders with all that is in them. */
struct DownloadItemsArg {
  1: list<common.CloudItemId> items,
  2: string targetDir,
  3: i32 conflictPolicy,                     // as DownloadChildrenArg
  4: bool openTargetDir,                     // show the folder when the last one is there
  5: string sourcePage,                      // as DownloadCloudFileArg
  6: map<string, string> extraParam,
}

/** The tasks made, one for each item, and what could not be brought down. */
struct DownloadItemsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<DownloadFileInfo> files,
  5: map<string, common.ServerErrorInfo> failedItems, // by item id, also those in conflicts
  6: list<drive.ConflictItem> conflicts,     // refused because the name is taken in the local folder
  7: map<string, string> extraParam,
}

/** Brings down what another device of the user sent. */
struct DownloadTransferRecordArg {
  1: list<string> taskIds,                   // tasks of type 6
  2: string targetDir,                       // empty for the user's download folder
  3: i32 conflictPolicy,                     // as DownloadChildrenArg
  4: map<string, string> extraParam,
}

/** The tasks as they are now, and what could not be brought down. */
struct DownloadTransferRecordResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<DownloadFileInfo> files,
  4: map<string, common.ServerErrorInfo> failedItems, // by task id
  5: map<string, string> extraParam,
}

/** Asks how many ended tasks the user has not seen. */
struct GetTransferUnreadCountArg {
  1: i32 transferType,                       // as TransferOpertionInfo; 0 for all
  2: map<string, string> extraParam,
}

/** Numbers for the badge of the transfer list. */
struct GetTransferUnreadCountResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 unreadCount,
  4: i32 failedCount,                        // part of unreadCount
  5: i32 runningCount,                       // waits or runs
  6: i64 lastTime,                           // when the newest unread task ended; 0 when there is none
  7: map<string, string> extraParam,
}

/** Opens the file of an ended task, or shows it in its folder. */
struct OpenTransferRecordArg {
  1: string taskId,
  2: i32 openMode,                           // 0 the file, 1 its local folder, 2 its cloud folder
  3: map<string, string> extraParam,
}

/** What was opened. */
struct OpenTransferRecordResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string localPath,
  4: common.CloudItem item,
  5: bool fileMissing,                       // moved or removed since; it may be brought down again
  6: map<string, string> extraParam,
}

/** Sends local or cloud files to other devices of the user. */
struct SendToFileTransferArg {
  1: list<string> filePaths,
  2: list<common.CloudItemId> items,
  3: list<string> deviceIds,                 // empty for all devices of the user
  4: string note,                            // shown beside the files
  5: map<string, string> extraParam,
}

/** The tasks made, and what could not be sent. */
struct SendToFileTransferResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<string> taskIds,
  5: map<string, common.ServerErrorInfo> failedItems, // by local path or item id
  6: map<string, string> extraParam,
}

/** Asks for the transfer list, newest first, one page of it. */
struct TransferInfoListArg {
  1: i32 transferType,                       // as TransferOpertionInfo; 0 for all
  2: list<i32> transferStates,               // as TransferOpertionInfo; empty for all
  3: string batchId,                         // tasks of one request only; empty for all
  4: list<string> taskIds,                   // these tasks only; empty for all
  5: string keyword,                         // part of the name, case ignored; empty for all
  6: i32 offset,
  7: i32 count,                              // 0 for as many as the service gives at once
  8: map<string, string> extraParam,
}

/** A page of the transfer list, and how all of it stands. */
struct TransferInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<TransferOpertionInfo> tasks,
  4: i64 total,                              // tasks that pass the filters, over all pages
  5: bool hasMore,
  6: i32 runningCount,                       // waits or runs; these numbers are of transferType, over all pages
  7: i32 pausedCount,
  8: i32 doneCount,
  9: i32 failedCount,
  10: double uploadSpeed,                    // of all tasks together, bytes in a second
  11: double downloadSpeed,
  12: map<string, string> extraParam,
}

/** Pauses, continues, cancels or clears tasks of the transfer list. */
struct UpdateTransferInfoArg {
  1: list<string> taskIds,                   // empty with a batchId or allTasks
  2: string batchId,                         // all tasks of one request
  3: bool allTasks,                          // all tasks of transferType
  4: i32 transferType,                       // as TransferOpertionInfo; 0 for all
  5: i32 operation,                          // 1 pause, 2 continue, 3 cancel, 4 try again, 5 take off the list,
                                             // 6 mark as seen, 7 set the priority
  6: i32 priority,                           // for operation 7
  7: bool removeFiles,                       // with 3 and 5: also what lies on this machine
  8: map<string, string> extraParam,
}

/** The tasks after the change, and those that could not be changed. */
struct UpdateTransferInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<TransferOpertionInfo> tasks,       // without those taken off the list
  4: list<string> removedTaskIds,
  5: map<string, common.ServerErrorInfo> failedItems, // by task id
  6: map<string, string> extraParam,
}

/** Brings the children of a local folder into a cloud folder. */
struct UploadChildrenArg {
  1: string folderPath,                      // the local folder; it is not made in the cloud itself
  2: list<string> names,                     // some children only; empty for all
  3: string groupId,
  4: string parentId,                        // the cloud folder; empty for the space's root
  5: bool recursive,                         // folders too, with all that is in them
  6: bool includeHidden,
  7: i32 conflictPolicy,                     // as DownloadChildrenArg
  8: map<string, string> extraParam,
}

/** The tasks made, and what could not be brought up. */
struct UploadChildrenResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<TransferOpertionInfo> tasks,
  5: map<string, common.ServerErrorInfo> failedItems, // by local path
  6: map<string, string> extraParam,
}

/** Brings one local file into a cloud folder. */
struct UploadFileArg {
  1: string filePath,
  2: string groupId,
  3: string parentId,                        // empty for the space's root
  4: string newName,                         // empty keeps the name
  5: i32 conflictPolicy,                     // as DownloadChildrenArg
  6: i32 priority,                           // higher comes first; 0 is usual
  7: bool keepLocalCopy,                     // the local file becomes the item's local copy
  8: bool waitUntilDone,                     // answer only when the file is in the cloud
  9: string sourcePage,                      // as DownloadCloudFileArg
  10: map<string, string> extraParam,
}

/** The task that brings the file up, or the item when it is done. */
struct UploadFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,
  4: common.CloudItem item,                  // an empty id until the task is done
  5: drive.ConflictItem conflict,            // filled when the name was refused
  6: map<string, string> extraParam,
}

/** Brings several local files into one cloud folder. */
struct UploadFilesToCloudArg {
  1: list<string> filePaths,
  2: string groupId,
  3: string parentId,                        // empty for the space's root
  4: i32 conflictPolicy,                     // as DownloadChildrenArg
  5: string sourcePage,                      // as DownloadCloudFileArg
  6: map<string, string> extraParam,
}

/** The tasks made in the order asked, and what could not be brought up. */
struct UploadFilesToCloudResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<TransferOpertionInfo> tasks,
  5: list<drive.ConflictItem> conflicts,     // refused because the name is taken
  6: map<string, common.ServerErrorInfo> failedItems, // by local path
  7: map<string, string> extraParam,
}

/** Brings local files and folders into one cloud folder, whole folders with all that is in them. */
struct UploadItemsArg {
  1: list<string> localPaths,
  2: string groupId,
  3: string parentId,                        // empty for the space's root
  4: i32 conflictPolicy,                     // as DownloadChildrenArg
  5: bool includeHidden,
  6: list<string> excludedSuffixes,          // lower case without the dot
  7: string sourcePage,                      // as DownloadCloudFileArg
  8: map<string, string> extraParam,
}

/** The tasks made, one for each path, and what could not be brought up. */
struct UploadItemsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string batchId,                         // of all tasks made
  4: list<TransferOpertionInfo> tasks,
  5: list<drive.ConflictItem> conflicts,     // refused because the name is taken
  6: map<string, common.ServerErrorInfo> failedItems, // by local path
  7: map<string, string> extraParam,
}

/** Brings changed local copies up at once that would wait for a quiet moment or a better network. */
struct UploadRightNowArg {
  1: list<common.CloudItemId> items,         // empty for all that wait
  2: bool ignoreNetworkLimits,               // also where the network is metered
  3: map<string, string> extraParam,
}

/** The tasks that were put first, and what could not be brought up. */
struct UploadRightNowResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<TransferOpertionInfo> tasks,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Brings a local file up so that a link to it can be made; answered when it is in the cloud. */
struct UploadShareFileArg {
  1: string filePath,
  2: string groupId,
  3: string parentId,                        // empty for the user's folder of shared files
  4: string newName,                         // empty keeps the name
  5: bool reuseExisting,                     // take the item when the same content is there already
  6: map<string, string> extraParam,
}

/** The item to make the link to. */
struct UploadShareFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,
  4: common.CloudItem item,
  5: bool reused,                            // nothing was brought up
  6: map<string, string> extraParam,
}

/** Brings local files into any cloud folder that is there; the tasks follow in the transfer list. */
struct BatchUploadFilesToCloudArg {
  1: list<string> filePaths,
  2: string groupId,
  3: string parentId,                        // empty for the space's root
  4: i32 conflictPolicy,                     // as DownloadChildrenArg
  5: string batchId,                         // chosen by the caller, to know its tasks again
  6: string sourcePage,                      // as DownloadCloudFileArg
  7: map<string, string> extraParam,
}

/** Brings a local folder with all that is in it into a cloud folder; its task follows in the transfer list. */
struct UploadFolderToCloudArg {
  1: string folderPath,
  2: string groupId,
  3: string parentId,                        // the folder is made inside it; empty for the space's root
  4: string newName,                         // empty keeps the name
  5: i32 conflictPolicy,                     // as DownloadChildrenArg; 2 also merges into a folder that is there
  6: bool includeHidden,
  7: list<string> excludedSuffixes,          // lower case without the dot
  8: string batchId,                         // chosen by the caller, to know its tasks again
  9: string sourcePage,                      // as DownloadCloudFileArg
  10: map<string, string> extraParam,
}
