/** What the user marks to find again: favorites, stars and quick access, and what the service recommends. */
include "common.thrift"
include "group.thrift"
include "recent.thrift"
include "link.thrift"
namespace cpp zel.vela
namespace py zelwire.favorite

/** An entry of the favorites. */
struct FavoriteItem {
  1: string id,                              // of the entry
  2: string userId,
  3: string groupId,
  4: string parentId,
  5: string fileId,
  6: string name,
  7: string type,                            // "file", "folder", "group", "link", "local"
  8: string path,                            // local path with type "local"; else the names joined with "/"
  9: i64 size,
  10: i64 ctime,                             // when it was marked
  11: i64 mtime,                             // of the item
  12: i32 sortOrder,                         // smaller first
  13: bool invalid,                          // the item is gone or may no longer be seen
  14: map<string, string> extraParam,
}

/** An entry of the favorites with what it points to. */
struct FavoriteItemInfo {
  1: FavoriteItem favoriteItem,
  2: common.CloudItem cloudItem,             // empty for a group
  3: group.GroupInfo groupInfo,              // of the group, or of the one it lies in
  4: list<common.CloudItem> parents,         // root first
  5: map<string, string> extraParam,
}

/** A starred item as the cloud keeps it. */
struct StarItem {
  1: string id,
  2: string groupId,
  3: string fileId,
  4: string userId,
  5: i64 ctime,
  6: string source,
  7: string desc,
  8: string tagId,
  9: string tagUsrId,
  10: i64 tagCtime,
  11: string tagType,
  12: string tagName,
  13: string fileFileId,
  14: string fileGroupId,
  15: string fileParent,
  16: string fileFname,
  17: string fileFsize,                      // bytes in decimal
  18: string fileFtype,
  19: string fileMtime,                      // the service's text
  20: string filePath,
  21: string linkSid,
  22: string linkCreator,
  23: string groupGroupId,
  24: string groupType,
  25: string groupName,
  26: string groupMtime,                     // the service's text
  27: string descName,
  28: bool itemInTeams,
  29: bool itemInApply,
  30: map<string, string> extraParam,
}

/** A starred item with what it points to. */
struct StarItemInfo {
  1: StarItem starItem,
  2: common.CloudItem cloudItem,             // of a file or folder
  3: group.GroupInfo groupInfo,              // of a group, or of the one the item lies in
  4: link.LinkInfo linkInfo,                 // of a link
  5: bool invalid,                           // the item is gone or may no longer be seen
  6: map<string, string> extraParam,
}

/** An entry of the quick access on the start page. */
struct StartPageQuickAccessItem {
  1: string id,                              // of the entry
  2: string name,
  3: string type,                            // "file", "folder", "group", "local", "page"
  4: common.CloudItemId item,                // of types "file", "folder" and "group"
  5: string localPath,                       // of type "local"
  6: string url,                             // of type "page"
  7: string iconUrl,                         // empty for the icon of the type
  8: i32 sortOrder,                          // smaller first
  9: bool builtIn,                           // cannot be taken away, only hidden
  10: bool hidden,
  11: bool collapsed,                        // a folder shown without what lies in it
  12: i64 ctime,
  13: i64 mtime,
  14: map<string, string> extraParam,
}

/** A document that the service recommends. */
struct RecommendItem {
  1: string id,                              // of the recommendation
  2: string kind,                            // "recent", "shared", "team", "template"
  3: common.CloudItem cloudItem,
  4: recent.RecentFileItem fileInfo,         // with kind "recent"
  5: string title,
  6: string reason,                          // one sentence for the user, "Mia edited it"
  7: string thumbnail,                       // path or address of the picture
  8: string url,                             // of a template
  9: double score,                           // higher is better
  10: i64 ctime,                             // when it was recommended
  11: map<string, string> extraParam,
}

/** A notice shown among the recommendations. */
struct RecommendAdvert {
  1: string id,
  2: string title,
  3: string content,
  4: string imageUrl,
  5: string jumpUrl,
  6: i32 position,                           // index in the list
  7: i64 startTime,
  8: i64 endTime,
  9: bool closable,
}

/** Takes items out of the favorites. */
struct CancelFavoriteItemArg {
  1: string userId,
  2: list<string> ids,                       // of entries
  3: list<common.CloudItemId> items,         // items whose entry id is not at hand
  4: map<string, string> extraParam,
}

/** Which entries were taken out. */
struct CancelFavoriteItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> cancelledIds,              // of entries
  4: map<string, common.ServerErrorInfo> failedItems, // by the id asked with
  5: i64 total,                              // entries afterwards
  6: map<string, string> extraParam,
}

/** Takes entries out of the quick access; built-in ones are hidden. */
struct CancelQuickAccessItemArg {
  1: string userId,
  2: list<string> ids,
  3: map<string, string> extraParam,
}

/** Which entries were taken out. */
struct CancelQuickAccessItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> cancelledIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by entry id
  5: map<string, string> extraParam,
}

/** Takes the star from items. */
struct CancelStarItemArg {
  1: string userId,
  2: list<string> ids,                       // StarItem.id
  3: list<common.CloudItemId> items,         // items whose star id is not at hand
  4: list<string> linkSids,                  // links, likewise
  5: map<string, string> extraParam,
}

/** Which stars were taken. */
struct CancelStarItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> cancelledIds,              // StarItem.id
  4: map<string, common.ServerErrorInfo> failedItems, // by the id asked with
  5: map<string, string> extraParam,
}

/** Puts an entry of the favorites at another place, or dropped items among them. */
struct DragDropFavoriteItemArg {
  1: string userId,
  2: string id,                              // of the entry that moves; empty when items are dropped
  3: list<common.CloudItemId> items,         // dropped items of the cloud
  4: list<string> localPaths,                // dropped local files
  5: string beforeId,                        // entry that comes after the place; empty for the last place
  6: map<string, string> extraParam,
}

/** The favorites after the drop. */
struct DragDropFavoriteItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FavoriteItem> favorites,           // moved and new entries
  4: list<string> ids,                       // of all entries in their order
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or path
  6: map<string, string> extraParam,
}

/** Where the mouse is during a drag, for the windows that other processes own. */
struct DragDropMouseArg {
  1: string dragId,                          // of the drag, chosen by its source
  2: i32 eventType,                          // 1 entered, 2 moved, 3 left, 4 dropped, 5 given up
  3: i32 x,                                  // device pixels of the virtual desktop
  4: i32 y,
  5: i32 buttons,                            // bits: 1 left, 2 right, 4 middle
  6: i32 modifiers,                          // bits: 1 shift, 2 control, 4 alt
  7: list<common.CloudItemId> items,         // dragged items of the cloud
  8: list<string> localPaths,                // dragged local files
  9: i64 windowId,                           // window below the mouse; 0 unknown
  10: map<string, string> extraParam,
}

/** What a drop at this place would do. */
struct DragDropMouseResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string dragId,                          // as asked
  4: i32 dropAction,                         // 0 refused, 1 copy, 2 move, 3 link
  5: string targetId,                        // entry or folder that would take it
  6: string tipDescribe,                     // text beside the mouse; may be empty
  7: map<string, string> extraParam,
}

/** Puts an entry of the quick access at another place, or dropped items among them. */
struct DragDropQuickAccessItemArg {
  1: string userId,
  2: string id,                              // of the entry that moves; empty when items are dropped
  3: list<common.CloudItemId> items,         // dropped items of the cloud
  4: list<string> localPaths,                // dropped local files
  5: string beforeId,                        // entry that comes after the place; empty for the last place
  6: map<string, string> extraParam,
}

/** The quick access after the drop. */
struct DragDropQuickAccessItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<StartPageQuickAccessItem> items,   // moved and new entries
  4: list<string> ids,                       // of all entries in their order
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or path
  6: map<string, string> extraParam,
}

/** Turns the quick access on or off. */
struct EnableQuickAccessArg {
  1: string userId,
  2: bool enable,
  3: map<string, string> extraParam,
}

/** The quick access after the change. */
struct EnableQuickAccessResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool enabled,
  4: list<StartPageQuickAccessItem> items,   // empty when it is off
  5: map<string, string> extraParam,
}

/** Lists the favorites with what they point to. */
struct GetFavoriteInfoListArg {
  1: string userId,
  2: list<string> ids,                       // of entries; empty for all
  3: i32 orderBy,                            // 0 the user's order, 1 marked last first, 2 name
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The favorites with what they point to. */
struct GetFavoriteInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FavoriteItemInfo> favorites,
  4: map<string, common.ServerErrorInfo> failedItems, // by entry id
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Lists the favorites. */
struct GetFavoriteListArg {
  1: string userId,
  2: list<string> types,                     // as FavoriteItem.type; empty for all
  3: i32 orderBy,                            // as GetFavoriteInfoListArg.orderBy
  4: i64 revision,                           // of the list at hand; an unchanged list is not sent again
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The favorites. */
struct GetFavoriteListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FavoriteItem> favorites,
  4: i64 total,
  5: i64 revision,
  6: bool unchanged,                         // since the asked revision; favorites is empty then
  7: map<string, string> extraParam,
}

/** Lists the quick access. */
struct GetQuickAccessListArg {
  1: string userId,
  2: bool withHidden,
  3: i32 offset,
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The quick access in its order. */
struct GetQuickAccessListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<StartPageQuickAccessItem> items,
  4: i64 total,
  5: bool collapsed,                         // the whole list is folded up
  6: map<string, string> extraParam,
}

/** Lists the starred items. */
struct GetStarListArg {
  1: string userId,
  2: string keyword,                         // in the name; empty for all
  3: list<string> types,                     // "file", "folder", "group", "link"; empty for all
  4: string tagId,                           // empty for all
  5: i32 orderBy,                            // 0 starred last first, 1 mtime newest first, 2 name
  6: i32 offset,
  7: i32 count,
  8: map<string, string> extraParam,
}

/** The starred items. */
struct GetStarListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<StarItem> stars,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Asks whether the quick access is on, and whether items are in it. */
struct QueryQuickAccessStateArg {
  1: string userId,
  2: list<common.CloudItemId> items,
  3: list<string> localPaths,
  4: map<string, string> extraParam,
}

/** Whether the quick access is on, and what is in it. */
struct QueryQuickAccessStateResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool enabled,
  4: map<string, string> entryIds,           // item id or path -> entry; those not in it are left out
  5: i32 entryCount,
  6: i32 entryLimit,
  7: map<string, string> extraParam,
}

/** Asks for recommended documents. */
struct RecommendListArg {
  1: string userId,
  2: string scene,                           // "recent", "startpage", "search"
  3: list<string> kinds,                     // as RecommendItem.kind; empty for all
  4: bool withAdverts,
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The recommended documents, best first. */
struct RecommendListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<RecommendItem> items,
  4: list<RecommendAdvert> adverts,
  5: i64 total,
  6: bool hasMore,
  7: i64 revision,
  8: map<string, string> extraParam,
}

/** Puts items into the favorites. */
struct SetFavoriteItemArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // files, folders or groups
  3: list<string> localPaths,
  4: map<string, string> extraParam,
}

/** The new entries. */
struct SetFavoriteItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FavoriteItem> favorites,           // those that were in already, too
  4: map<string, common.ServerErrorInfo> failedItems, // by item id or path
  5: i64 total,                              // entries afterwards
  6: map<string, string> extraParam,
}

/** Puts items into the quick access. */
struct SetQuickAccessItemArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // files, folders or groups
  3: list<string> localPaths,
  4: map<string, string> pages,              // address -> name
  5: string beforeId,                        // entry that comes after them; empty for the last place
  6: map<string, string> extraParam,
}

/** The new entries. */
struct SetQuickAccessItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "full" when the limit is reached
  3: list<StartPageQuickAccessItem> items,   // those that were in already, too
  4: map<string, common.ServerErrorInfo> failedItems, // by item id, path or address
  5: map<string, string> extraParam,
}

/** Gives items a star. */
struct SetStarItemArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // files, folders or groups
  3: list<string> linkSids,
  4: string tagId,                           // may be empty
  5: string source,                          // where it was done: "list", "menu", "document"
  6: string desc,                            // the user's note; may be empty
  7: map<string, string> extraParam,
}

/** The stars given. */
struct SetStarItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<StarItem> stars,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id or link
  5: map<string, string> extraParam,
}

/** Folds the quick access, or entries of it, up or down. */
struct UpdateQuickAccessCollapseArg {
  1: string userId,
  2: list<string> ids,                       // of entries; empty for the whole list
  3: bool collapsed,
  4: map<string, string> extraParam,
}

/** What is folded up now. */
struct UpdateQuickAccessCollapseResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool collapsed,                         // the whole list
  4: list<string> collapsedIds,              // entries
  5: map<string, common.ServerErrorInfo> failedItems, // by entry id
  6: map<string, string> extraParam,
}

/** Changes an entry of the quick access: its name, icon or whether it is shown. */
struct UpdateQuickAccessItemArg {
  1: string userId,
  2: StartPageQuickAccessItem item,          // id says which; the fields below are taken from it
  3: list<string> changedFields,             // "name", "iconUrl", "hidden", "url", "localPath"
  4: map<string, string> extraParam,
}

/** The entry after the change. */
struct UpdateQuickAccessItemResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: StartPageQuickAccessItem item,
  4: map<string, string> extraParam,
}

/** Starred items with what they point to: those of the asked star ids, or all. */
struct GetStarInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<StarItemInfo> stars,
  4: map<string, common.ServerErrorInfo> failedItems, // by star id
  5: i64 total,
  6: bool hasMore,                           // the service sends at most its own limit at once
  7: map<string, string> extraParam,
}
