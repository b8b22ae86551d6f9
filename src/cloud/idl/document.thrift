/** Working with one document: opening, saving, names, versions, local copies, pictures, and who else edits it. */
include "common.thrift"
include "drive.thrift"
namespace cpp zel.vela
namespace py zelwire.document

/** One kept version of a file. */
struct HistoryItem {
  1: string historyId,                       // of the version
  2: string fileId,
  3: string groupId,
  4: i64 cloudVersion,
  5: string name,                            // of the file in that version
  6: i64 size,
  7: string sha1,                            // of the content, hexadecimal; empty when not known
  8: common.UserData modifier,
  9: string deviceName,                      // where it was made
  10: string comment,
  11: i64 mtime,
  12: bool current,                          // the version that the file has now
  13: bool pinned,                           // never thrown away by itself
  14: string cachePath,                      // path of the local copy, empty when there is none
  15: map<string, string> extraParam,
}

/** A file whose picture is wanted. */
struct GetFileThumbnailArgEntry {
  1: common.CloudItemId item,
  2: string localPath,                       // instead of item, for a file of this machine
  3: i32 width,                              // largest wanted, pixels
  4: i32 height,
  5: i64 cloudVersion,                       // of the picture that the caller has; 0 for none
}

/** The picture of a file. */
struct FileThumbnailEntry {
  1: common.CloudItemId item,
  2: string localPath,                       // as asked
  3: string thumbnailPath,                   // local path of the picture; empty when there is none
  4: i32 width,                              // of the picture, pixels
  5: i32 height,
  6: i64 cloudVersion,                       // that the picture shows
  7: bool unchanged,                         // the caller has this picture
}

/** A person who has a document open. */
struct CollaborativeUserInfo {
  1: common.UserData user,
  2: bool editing,                           // else only reading
  3: string deviceId,
  4: string deviceName,
  5: i64 joinTime,
  6: i64 activeTime,                         // of the last key or click
}

/** Whether and by whom a document is open. */
struct DocCollaborativeInfo {
  1: string fileId,
  2: string groupId,
  3: i32 collaborativeState,                 // 0 closed, 1 being read, 2 edited by one, 3 by several, 4 locked
  4: list<CollaborativeUserInfo> users,
  5: string lockUserId,                      // who locked it
  6: i64 cloudVersion,
  7: i64 mtime,                              // when this changed last
  8: map<string, string> extraParam,
}

/** Asks who has documents open. */
struct BatchQueryDocCollaborativeStatusArg {
  1: list<string> fileIds,
  2: bool withUsers,                         // fill the users, else the state only
  3: map<string, string> extraParam,
}

/** Who has documents open. */
struct BatchQueryDocCollaborativeStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<DocCollaborativeInfo> infos,       // in the order asked
  4: map<string, common.ServerErrorInfo> failedItems, // by file id
  5: map<string, string> extraParam,
}

/** Asks whether items may be dragged out of the box into other programs. */
struct CanDragDropToSystemArg {
  1: list<common.CloudItemId> items,
  2: map<string, string> extraParam,
}

/** Which items may be dragged out, and the files that stand for them. */
struct CanDragDropToSystemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool allowed,                           // all of them
  4: map<string, string> localPaths,         // id of the item to its local copy; others must be brought down first
  5: i64 downloadSize,                       // of those others, bytes
  6: map<string, common.ServerErrorInfo> failedItems, // by item id, those that may not
  7: map<string, string> extraParam,
}

/** Saves copies of cloud items in a local folder, or in another folder of the cloud. */
struct CloudItemsSaveAsArg {
  1: list<common.CloudItemId> items,
  2: string targetDir,                       // a local folder; empty for a folder of the cloud
  3: string targetGroupId,
  4: string targetParentId,
  5: map<string, string> newNames,           // id of the item to its new name; others keep theirs
  6: i32 conflictPolicy,                     // taken names: 0 refuse, 1 keep both, 2 replace, 3 skip
  7: map<string, string> extraParam,
}

/** The copies made and those still on their way. */
struct CloudItemsSaveAsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, string> localPaths,         // id of the item to its copy in targetDir
  4: list<common.CloudItem> items,           // the copies in the cloud
  5: list<string> taskIds,                   // of what is still being brought down
  6: list<drive.ConflictItem> conflicts,     // refused because the name is taken
  7: map<string, common.ServerErrorInfo> failedItems, // by item id
  8: map<string, string> extraParam,
}

/** Takes a file of this machine over as the local copy of a cloud file, so that it need not be brought down. */
struct CopyFileToCloudCacheArg {
  1: string filePath,
  2: common.CloudItemId item,
  3: i64 cloudVersion,                       // that the file's content is; 0 when it is changed and must go up
  4: bool moveFile,                          // take the file itself instead of a copy
  5: map<string, string> extraParam,
}

/** The local copy. */
struct CopyFileToCloudCacheResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string cachePath,
  4: common.CloudItem item,                  // its fileState tells whether it goes up
  5: map<string, string> extraParam,
}

/** Asks where the local copy of a cloud file is, or will be. */
struct GetCloudFileCachePathArg {
  1: common.CloudItemId item,
  2: bool downloadIfMissing,
  3: map<string, string> extraParam,
}

/** Where the local copy is, and whether it is good. */
struct GetCloudFileCachePathResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string cachePath,
  4: bool existing,
  5: bool upToDate,                          // of the cloud's version, with no change of its own
  6: i64 cacheVersion,                       // 0 when there is none
  7: string taskId,                          // that brings it down
  8: map<string, string> extraParam,
}

/** Asks for pictures of files. */
struct GetFileThumbnailArg {
  1: list<GetFileThumbnailArgEntry> entries,
  2: bool cachedOnly,                        // only those that are here; the others are not made
  3: map<string, string> extraParam,
}

/** The pictures that are here; those being made follow as a push. */
struct GetFileThumbnailResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FileThumbnailEntry> thumbnails,
  4: list<string> pendingIds,                // id or local path, being made
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or local path
  6: map<string, string> extraParam,
}

/** Asks for the versions of a file, newest first, one page of them. */
struct GetHistoryArg {
  1: common.CloudItemId item,
  2: i32 offset,
  3: i32 count,                              // 0 for as many as the service gives at once
  4: map<string, string> extraParam,
}

/** A page of the versions of a file. */
struct GetHistoryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<HistoryItem> items,
  4: i64 total,                              // versions over all pages
  5: bool hasMore,
  6: i64 totalSize,                          // of all versions, bytes
  7: i32 keepCount,                          // versions kept at most; 0 without limit
  8: map<string, string> extraParam,
}

/** Asks for the user's documents in the spaces of a company, latest first, one page of them. */
struct GetMyCompanyDocItemsArg {
  1: string companyId,
  2: i32 relation,                           // 0 all, 1 made by, 2 changed by, 3 shared with the user
  3: list<string> suffixes,                  // lower case without the dot; empty for all
  4: string orderBy,                         // "name", "size", "ctime" or "mtime"; empty for "mtime"
  5: bool descending,
  6: i32 offset,
  7: i32 count,                              // 0 for as many as the service gives at once
  8: map<string, string> extraParam,
}

/** A page of the user's documents in a company. */
struct GetMyCompanyDocItemsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<common.BatchParentItemsInfo> parents,  // one for each of items
  5: i64 total,                              // documents that pass the filters, over all pages
  6: bool hasMore,
  7: map<string, string> extraParam,
}

/** Asks for good names for a document that is about to be saved. */
struct NameRecommendArg {
  1: string name,                            // what it is called now, with the suffix
  2: string title,                           // of the content; may be empty
  3: string summary,                         // first words of the content; may be empty
  4: string groupId,                         // where it will be saved
  5: string parentId,
  6: i32 count,                              // names wanted at most; 0 for one
  7: map<string, string> extraParam,
}

/** Names that are free in the folder, the best first. */
struct NameRecommendResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> names,                     // with the suffix
  4: bool nameTaken,                         // the name asked about is not free
  5: map<string, string> extraParam,
}

/** Shows a cloud folder in the file manager. */
struct OpenCloudDirArg {
  1: string groupId,
  2: string parentId,                        // the folder; empty for the space's root
  3: list<string> selectedIds,               // children to select in it
  4: map<string, string> extraParam,
}

/** The local folder that was shown. */
struct OpenCloudDirResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string localPath,
  4: common.CloudItem folder,
  5: map<string, string> extraParam,
}

/** Shows the root of the user's own space in the file manager. */
struct OpenCloudDiskArg {
  1: string sourcePage,                      // who asks; "recent", "search" …
  2: bool createFolder,                      // make the local folder when it is not there
  3: map<string, string> extraParam,
}

/** The local folder that was shown. */
struct OpenCloudDiskResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string localPath,
  4: map<string, string> extraParam,
}

/** Goes to one of the fixed places of the cloud. */
struct OpenCloudEntryArg {
  1: string entry,                           // "mycloud", "team", "company", "share", "star", "recent", "recycle"
  2: string companyId,                       // of "company"
  3: string groupId,                         // of "team"; empty for the list of teams
  4: i32 openMode,                           // 0 in the box, 1 in the file manager, 2 in the web browser
  5: map<string, string> extraParam,
}

/** Where the place is. */
struct OpenCloudEntryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,                  // of the place; virtualType says that only the service makes it up
  4: string localPath,                       // empty where there is none
  5: string url,                             // of openMode 2
  6: map<string, string> extraParam,
}

/** Shows a folder that only the service makes up in the file manager. */
struct OpenVirtualCloudDiskArg {
  1: i32 virtualType,                        // as CloudItem.virtualType; 0 for all spaces side by side
  2: string groupId,                         // go on into this space; empty to stay above
  3: string parentId,
  4: map<string, string> extraParam,
}

/** The folder that was shown. */
struct OpenVirtualCloudDiskResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string localPath,                       // where it is mounted
  4: bool mounted,                           // it was not there before this request
  5: map<string, string> extraParam,
}

/** Asks who has one document open. */
struct QueryDocCollaborativeStatusArg {
  1: string fileId,
  2: string groupId,                         // empty when the caller does not know it
  3: map<string, string> extraParam,
}

/** Who has one document open. */
struct QueryDocCollaborativeStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: DocCollaborativeInfo info,
  4: bool editable,                          // the asking user may join the editing now
  5: map<string, string> extraParam,
}

/** Puts files on the clipboard so that the file manager can paste them. */
struct RequestCopyFilesArg {
  1: list<common.CloudItemId> items,
  2: list<string> localPaths,                // files of this machine beside the items
  3: bool cutFiles,                          // pasting moves them
  4: map<string, string> extraParam,
}

/** The local files that stand for the items. */
struct RequestCopyFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> localPaths,                // all that can be pasted now
  4: list<string> taskIds,                   // that bring the others down
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or local path
  6: map<string, string> extraParam,
}

/** Opens a document, bringing it down first where needed. */
struct RequestOpenFileArg {
  1: common.CloudItemId item,
  2: string fileId,                          // instead of item, when that is all the caller knows
  3: string localPath,                       // instead of item, for a file of this machine
  4: string linkSid,                         // instead of item, for a file that is reached by a link
  5: i32 openMode,                           // 0 edit, 1 read only, 2 in the web browser
  6: i64 cloudVersion,                       // 0 for the newest
  7: string appType,                         // as RecentFileItem.appType; empty for the suffix's own
  8: string sourcePage,                      // as OpenCloudDiskArg
  9: map<string, string> extraParam,
}

/** The file that is opened, or the task after which it will be. */
struct RequestOpenFileResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string localPath,
  4: string taskId,                          // that brings it down; empty when it is open
  5: common.CloudItem item,
  6: bool readOnly,                          // rights or a lock allow no more, whatever was asked
  7: DocCollaborativeInfo collaboration,
  8: map<string, string> extraParam,
}

/** Saves a document under another name or in another place of the cloud. */
struct SaveAsArg {
  1: common.CloudItemId item,                // what is saved; an empty id for a document not yet in the cloud
  2: string localPath,                       // its content as it is now; empty for the cloud's
  3: string targetGroupId,
  4: string targetParentId,
  5: string newName,                         // with the suffix
  6: i32 conflictPolicy,                     // as CloudItemsSaveAsArg
  7: bool openCopy,                          // go on working in the copy
  8: map<string, string> extraParam,
}

/** The saved copy. */
struct SaveAsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: string cachePath,                       // of the copy
  5: string taskId,                          // that brings it up; empty when it is in the cloud
  6: drive.ConflictItem conflict,            // filled when the name was refused
  7: map<string, string> extraParam,
}

/** Saves local files, or files reached by links, in a folder of the cloud. */
struct SaveToCloudDirArg {
  1: list<string> filePaths,
  2: list<string> linkSids,                  // files of others that a link leads to
  3: string groupId,
  4: string parentId,                        // empty for the space's root
  5: i32 conflictPolicy,                     // as CloudItemsSaveAsArg
  6: bool removeLocal,                       // take a local file away once it is in the cloud
  7: map<string, string> extraParam,
}

/** What is in the cloud, and what is still on its way. */
struct SaveToCloudDirResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<string> taskIds,                   // of what is still being brought up
  5: list<drive.ConflictItem> conflicts,     // refused because the name is taken
  6: map<string, common.ServerErrorInfo> failedItems, // by local path or link
  7: map<string, string> extraParam,
}

/** Asks to be told when others open, edit or close documents. */
struct SubscribeDocCollaborativeStatusArg {
  1: list<string> fileIds,
  2: string subscriberId,                    // chosen by the caller; the same one adds to its files
  3: map<string, string> extraParam,
}

/** How the documents stand now; changes follow as a push. */
struct SubscribeDocCollaborativeStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<DocCollaborativeInfo> infos,
  4: map<string, common.ServerErrorInfo> failedItems, // by file id
  5: map<string, string> extraParam,
}

/** Ends being told about documents. */
struct UnsubscribeDocCollaborativeStatusArg {
  1: list<string> fileIds,                   // empty for all of the subscriber
  2: string subscriberId,
  3: map<string, string> extraParam,
}

/** What is left of the subscription. */
struct UnsubscribeDocCollaborativeStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 remainingCount,                     // files that the subscriber is still told about
  4: map<string, string> extraParam,
}

/** Ends a renaming that began before a save: the cloud file takes the new name, or gets the old one back. */
struct CommitRenameAfterSaveAsArg {
  1: common.CloudItemId item,
  2: string renameToken,                     // as RenameBeforeSaveAsArg
  3: bool saved,                             // false: the save failed, take all back
  4: string localPath,                       // where the document was saved
  5: map<string, string> extraParam,
}

/** Holds a new name for a cloud file while the program saves the document under it. */
struct RenameBeforeSaveAsArg {
  1: common.CloudItemId item,
  2: string renameToken,                     // chosen by the caller, to end this renaming
  3: string oldPath,                         // the local copy under the old name
  4: string newName,                         // with the suffix
  5: i32 conflictPolicy,                     // as CloudItemsSaveAsArg
  6: map<string, string> extraParam,
}
