/** Recently used files over all devices of a user: roaming records, what was done with files, unread marks. */
include "common.thrift"
include "group.thrift"
namespace cpp zel.vela
namespace py zelwire.recent

/** One roaming record: a file that the user opened on some device, and where its content is. */
struct RecentFileItem {
  1: string appType,                         // "writer", "sheet", "slides", "pdf" …; what opens it
  2: string b64fName,                        // the name's UTF-8 bytes in Base64
  3: i64 collectTime,                        // when the user marked it; 0 when not
  4: i64 ctime,                              // when the record was made
  5: string curDeviceId,                     // the device that used it last
  6: string curDeviceName,
  7: string curDeviceType,                   // "pc", "phone", "pad" or "web"
  8: bool deleted,                           // the file is gone; the record remains until it is taken off
  9: string external,                        // JSON text that only its writer reads
  10: i64 fileTime,                          // when the file was opened last
  11: string fileSrc,                        // where it was opened from, as people read it
  12: string fileSrcType,                    // "local", "cloud", "group", "share" or "chat"
  13: string fileId,                         // of the cloud file; empty for a file of one device only
  14: string groudId,                        // the space of the cloud file
  15: bool isTmp,                            // lies in a folder for temporary files
  16: i64 mtime,                             // when the record changed last
  17: string name,
  18: string operation,                      // what was done last: "open", "save", "create", "share"
  19: string opv,                            // version of the record, grows with each change
  20: string oriDevId,                       // the device that made the record
  21: string oriDevName,
  22: string oriDevType,                     // as curDeviceType
  23: string path,                           // on the device that used it last
  24: string roamingId,                      // of the record
  25: i64 size,
  26: string status,                         // "normal", "deleted" or "locked"
  27: string summary,                        // first words of the content; may be empty
  28: string thumbnail,                      // path or address of a picture; may be empty
  29: string userId,
  30: i32 fileState,                         // as CloudItem.fileState
  31: string taskId,
  32: string cachePath,                      // path of the local copy, empty when there is none
  33: i64 cacheFver,                         // version of the local copy
  34: i64 srcMtime,                          // of the file at path when the record was made
  35: i64 fver,                              // version of the file in the cloud
  36: string sha1,                           // of the content, hexadecimal; empty when not known
  37: bool fake,                             // made from a local trace only, not yet known to the cloud
  38: string lastUserId,                     // who changed the file last
  39: i64 lastUserModifyTime,
  40: string fileType,                       // "file", "folder" or "link"
  41: map<string, string> extraParam,
}

/** A roaming record with all that the page shows of its cloud file. */
struct RecentFileItemInfo {
  1: common.CloudItem cloudItem,
  2: RecentFileItem fileInfo,
  3: map<string, common.CloudItem> mapParentItem,  // id of the folder to the folder it lies in
  4: map<string, group.GroupInfo> mapGroupItem,    // id of the group to the group it belongs to
  5: bool isShareByOthers,
  6: map<string, string> extraParam,
}

/** A space that the contents of roaming files can be kept in. */
struct RoamingGroupItem {
  1: string groupId,
  2: string parentId,                        // the folder in it that takes the contents
  3: string name,
  4: string type,                            // as GroupInfo.type
  5: string companyId,
  6: bool isDefault,                         // takes what is opened from now on
  7: bool autoUpload,                        // contents go up, else records only
  8: i64 fileCount,
  9: i64 usedSize,                           // bytes of roaming contents
  10: i64 sizeLimit,                         // the largest file that is taken, bytes; -1 without limit
  11: map<string, string> extraParam,
}

/** One thing that was done with a file: who, when, on which device. */
struct FileRecordItem {
  1: string recordId,                        // empty until the service keeps it
  2: string fileId,                          // empty for a file of one device only
  3: string groupId,
  4: string parentId,
  5: string path,                            // full path on the device
  6: string name,
  7: i64 size,
  8: i64 mtime,                              // of the file
  9: i64 actionTime,
  10: string operation,                      // "open", "save", "create", "rename", "move", "share" or "comment"
  11: string appType,                        // as RecentFileItem.appType
  12: string userId,
  13: string userName,
  14: string userAvatar,
  15: string deviceId,
  16: string deviceName,
  17: i64 cloudVersion,                      // the file's version after it
  18: map<string, string> extraParam,
}

/** Says that files were used here, so that they show up on all devices. */
struct AddRoamingRecordArg {
  1: list<FileRecordItem> records,
  2: bool uploadContent,                     // also bring contents up that only this machine has
  3: map<string, string> extraParam,
}

/** The records kept, new or renewed. */
struct AddRoamingRecordResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecentFileItem> items,             // in the order sent
  4: string opv,                             // of the whole list after the change
  5: map<string, common.ServerErrorInfo> failedItems, // by path, or by file id without one
  6: map<string, string> extraParam,
}

/** Takes records off the recent list of all devices. */
struct DelRoamingRecordArg {
  1: list<string> roamingIds,
  2: list<string> fileIds,                   // records of these cloud files as well
  3: list<string> paths,                     // records of these files of this machine as well
  4: bool allRecords,                        // the whole list; the three above are not read
  5: bool removeFiles,                       // also put the cloud files into the recycle bin
  6: map<string, string> extraParam,
}

/** The records taken off. */
struct DelRoamingRecordResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> removedIds,                // roaming ids; empty with allRecords
  4: i64 removedCount,
  5: string opv,                             // of the whole list after the change
  6: map<string, common.ServerErrorInfo> failedItems, // by id or path as asked
  7: map<string, string> extraParam,
}

/** Asks which space takes the contents of files opened from now on. */
struct GetCurrentDefaultRoamingBoxArg {
  1: string companyId,                       // of the user's private spaces when empty
  2: map<string, string> extraParam,
}

/** The space that takes roaming contents. */
struct GetCurrentDefaultRoamingBoxResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: RoamingGroupItem group,
  4: bool roamingOn,                         // false: records stay on this machine
  5: bool changeable,                        // the user may choose another space
  6: map<string, string> extraParam,
}

/** Asks for the spaces that can take roaming contents. */
struct GetRoamingGroupArg {
  1: string companyId,                       // empty for those of all companies and the private ones
  2: i32 offset,
  3: i32 count,                              // 0 for as many as the service gives at once
  4: map<string, string> extraParam,
}

/** A page of the spaces that can take roaming contents. */
struct GetRoamingGroupResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RoamingGroupItem> groups,
  4: i64 total,                              // spaces over all pages
  5: bool hasMore,
  6: map<string, string> extraParam,
}

/** Asks for recent files with their cloud items, folders and groups, latest first. */
struct GetRecentFileInfoListArg {
  1: i32 offset,
  2: i32 count,                              // 0 for as many as the service gives at once
  3: list<string> roamingIds,                // these records only, offset and count not read; empty for all
  4: list<string> suffixes,                  // lower case without the dot; empty for all
  5: bool withParents,                       // fill mapParentItem
  6: bool withGroups,                        // fill mapGroupItem
  7: i64 changedAfter,                       // only records with a later mtime; 0 for all
  8: bool refresh,                           // fetch from the cloud before the answer
  9: map<string, string> extraParam,
}

/** A page of recent files with all that the page shows of them. */
struct GetRecentFileInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecentFileItemInfo> items,
  4: i64 total,                              // records that pass the filters, over all pages
  5: bool hasMore,
  6: string opv,                             // of the whole list
  7: map<string, common.ServerErrorInfo> failedItems, // by roaming id
  8: map<string, string> extraParam,
}

/** Asks for roaming records, latest first, one page of them. */
struct GetRecentFilesArg {
  1: i32 offset,
  2: i32 count,                              // 0 for as many as the service gives at once
  3: string keyword,                         // part of the name, case ignored; empty for all
  4: list<string> suffixes,                  // lower case without the dot; empty for all
  5: string deviceId,                        // last used on this device; empty for all
  6: bool otherDevicesOnly,                  // without those of this machine
  7: i64 changedAfter,                       // only records with a later mtime; 0 for all
  8: bool includeDeleted,                    // also records whose file is gone
  9: bool refresh,                           // fetch from the cloud before the answer
  10: map<string, string> extraParam,
}

/** A page of roaming records. */
struct GetRecentFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecentFileItem> items,
  4: i64 total,                              // records that pass the filters, over all pages
  5: bool hasMore,
  6: i32 unreadCount,                        // records from other devices that the user has not seen
  7: string opv,                             // of the whole list; unchanged means the same records
  8: i64 syncTime,                           // when the list was last fetched; 0 for never
  9: map<string, string> extraParam,
}

/** Tells the service how the recent list of this machine changed. */
struct NotifyRecentFilesArg {
  1: i32 action,                             // 1 added, 2 changed, 3 removed, 4 emptied
  2: list<RecentFileItem> items,             // empty with action 4
  3: string clientName,                      // who saw the change; it gets no push for it
  4: map<string, string> extraParam,
}

/** The list after the change, in short. */
struct NotifyRecentFilesResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> roamingIds,                // of the items, in the order sent
  4: i64 total,                              // records of the whole list
  5: string opv,                             // of the whole list
  6: map<string, string> extraParam,
}

/** Asks what was done with a file, latest first, one page of it. */
struct GetFileRecentEventsArg {
  1: common.CloudItemId item,
  2: string path,                            // instead of item, for a file of this machine
  3: list<string> operations,                // as FileRecordItem.operation; empty for all
  4: i64 beforeTime,                         // only what was done earlier; 0 for all
  5: i32 offset,
  6: i32 count,                              // 0 for as many as the service gives at once
  7: map<string, string> extraParam,
}

/** A page of what was done with a file. */
struct GetFileRecentEventsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FileRecordItem> events,
  4: i64 total,                              // events that pass the filters, over all pages
  5: bool hasMore,
  6: list<common.UserData> users,            // everyone among the events, once
  7: map<string, string> extraParam,
}

/** Takes the unread mark off items, or sets it again. */
struct SetCloudItemReadArg {
  1: list<common.CloudItemId> items,
  2: list<string> roamingIds,                // records without a cloud file
  3: bool allItems,                          // every unread mark; the two above are not read
  4: bool unread,                            // set the mark again
  5: map<string, string> extraParam,
}

/** How many unread marks are left. */
struct SetCloudItemReadResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 changedCount,
  4: i32 unreadCount,                        // over the whole recent list
  5: map<string, common.ServerErrorInfo> failedItems, // by id as asked
  6: map<string, string> extraParam,
}

/** Says that the roaming records are being fetched; they follow as a push. */
struct RequestSyncRecentResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string taskId,                          // of the fetch
  4: bool alreadyRunning,                    // the fetch had begun before this request
  5: i64 syncTime,                           // when the list was last fetched; 0 for never
  6: string opv,                             // of the list as it is until then
  7: map<string, string> extraParam,
}
