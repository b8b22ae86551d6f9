/** The signed-in user, the users of this machine, their pictures, devices, switches, and what they are offered. */
include "common.thrift"
namespace cpp zel.vela
namespace py zelwire.account

/** Whether one skin may be used. */
struct CheckSkinStatusItem {
  1: string skinId,
  2: string name,
  3: i32 skinState,                          // 0 usable, 1 needs membership, 2 expired, 3 withdrawn, 4 unknown
  4: i64 expireTime,                         // 0 for never
  5: i32 version,                            // newest one; above the asked one an update is there
  6: string downloadUrl,
}

/** A hint that introduces a company's offers to its members. */
struct CompanyIntroPolicyItem {
  1: string companyId,
  2: string policyId,
  3: string title,
  4: string content,
  5: string url,                             // opened by a click
  6: i32 maxShowCount,                       // 0 for no limit
  7: i64 beginTime,
  8: i64 expireTime,                         // 0 for never
}

/** A feature that a company has switched for its members. */
struct CorpSpecialItem {
  1: string companyId,
  2: string key,                             // the feature's name
  3: bool enabled,
  4: string value,                           // its setting, when it has one
  5: i64 expireTime,                         // 0 for never
}

/** Whether and how often a hint may appear at one position. */
struct SpreadControlItem {
  1: string position,
  2: bool enabled,
  3: string content,
  4: string url,                             // opened by a click
  5: i32 maxShowCount,                       // 0 for no limit
  6: i64 interval,                           // least time between two showings, ms
  7: i64 beginTime,
  8: i64 expireTime,                         // 0 for never
}

/** Names a user whose picture is asked for. */
struct GetUserThumbnailArgEntry {
  1: string userId,
  2: string userAvatar,                      // address of the picture when known, else empty
  3: i64 mtime,                              // of the picture at hand, 0 for none
}

/** The picture of a user. */
struct UserThumbnailEntry {
  1: string userId,
  2: string userAvatar,                      // address that it came from
  3: string path,                            // local PNG file, empty when there is none
  4: i64 mtime,
  5: i32 thumbnailState,                     // 0 at hand, 1 being fetched, 2 the user has none, 3 failed
}

/** Asks which features in trial are open to a user. */
struct AIGrayUserListExistArg {
  1: string userId,                          // empty for the signed-in user
  2: string companyId,
  3: list<string> features,
  4: map<string, string> extraParam,
}

/** The features and whether they are open. */
struct AIGrayUserListExistResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, bool> features,             // every asked one
  4: i64 expireTime,                         // ask again after this; 0 for at the next start
  5: map<string, string> extraParam,
}

/** Asks for names and pictures of several people. */
struct BatchQueryUserDataArg {
  1: list<string> userIds,
  2: bool withAvatar,                        // fetches pictures that are not at hand
  3: map<string, string> extraParam,
}

/** The people found, in the order asked. */
struct BatchQueryUserDataResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.UserData> users,
  4: map<string, common.ServerErrorInfo> failedItems, // by user id
  5: map<string, string> extraParam,
}

/** Asks whether skins may be used by the signed-in user. */
struct CheckSkinStatusArg {
  1: map<string, i32> skinVersions,          // by skin id, the version at hand; 0 for none
  2: string currentSkinId,
  3: map<string, string> extraParam,
}

/** The skins' states, and which one to use. */
struct CheckSkinStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CheckSkinStatusItem> items,
  4: string usableSkinId,                    // the current one, or what to fall back to
  5: map<string, string> extraParam,
}

/** Takes a device off the account: it is signed out and its records are forgotten. */
struct DeleteDeviceArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> deviceIds,
  3: string verifyToken,                     // from VerifyDeleteDeviceResult; empty when none is needed
  4: map<string, string> extraParam,
}

/** Which devices are gone. */
struct DeleteDeviceResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> deviceIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by device id
  5: map<string, string> extraParam,
}

/** Proves that the user may delete devices. */
struct VerifyDeleteDeviceArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> deviceIds,
  3: string verifyMethod,                    // "password" or "code"; empty asks what is needed
  4: string verifyText,                      // the password or the code
  5: map<string, string> extraParam,
}

/** The leave to delete them, or how to get it. */
struct VerifyDeleteDeviceResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool verified,
  4: list<string> verifyMethods,             // what the account accepts; empty when no proof is needed
  5: string verifyToken,                     // for DeleteDeviceArg, when verified
  6: i64 expireTime,                         // of the token
  7: map<string, string> extraParam,
}

/** Sends the user's opinion or a fault report. */
struct FeedbackArg {
  1: i32 feedbackType,                       // 0 opinion, 1 fault, 2 wish
  2: string content,
  3: string contact,                         // how to answer; may be empty
  4: string source,                          // the page that it was written on
  5: list<string> attachments,               // local paths
  6: bool withLogs,                          // adds the log of the last day
  7: map<string, string> extraParam,
}

/** The report's number; attachments that could not be read are in failedItems. */
struct FeedbackResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string feedbackId,
  4: map<string, common.ServerErrorInfo> failedItems, // by local path
  5: map<string, string> extraParam,
}

/** Asks which hints of companies are to be shown. */
struct GetCompanyIntroPolicyArg {
  1: list<string> companyIds,                // empty for all companies of the user
  2: string position,                        // the page that shows them; empty for all
  3: map<string, string> extraParam,
}

/** The hints that hold now. */
struct GetCompanyIntroPolicyResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CompanyIntroPolicyItem> items,
  4: map<string, common.ServerErrorInfo> failedItems, // by company id
  5: map<string, string> extraParam,
}

/** Asks which features a company has switched. */
struct GetCorpSpecialArg {
  1: string companyId,                       // empty for the company in use
  2: list<string> keys,                      // empty for all
  3: map<string, string> extraParam,
}

/** The switched features; an asked one that is not here is as the program has it. */
struct GetCorpSpecialResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string companyId,
  4: list<CorpSpecialItem> items,
  5: map<string, string> extraParam,
}

/** Asks which hints may appear. */
struct GetSpreadControlArg {
  1: list<string> positions,                 // empty for all
  2: string userId,                          // empty for the signed-in user
  3: string companyId,
  4: map<string, string> extraParam,
}

/** The positions that have a hint. */
struct GetSpreadControlResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<SpreadControlItem> items,
  4: i64 expireTime,                         // ask again after this; 0 for at the next start
  5: map<string, string> extraParam,
}

/** Asks which guides the user has gone through, on any device. */
struct GetUserGuideStatusArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> guideIds,                  // empty for all
  3: map<string, string> extraParam,
}

/** The guides' states. */
struct GetUserGuideStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, i32> guideStates,           // by guide id: 0 not shown, 1 shown, 2 finished, 3 declined
  4: map<string, string> extraParam,
}

/** Remembers which guides the user has gone through. */
struct SetUserGuideStatusArg {
  1: string userId,                          // empty for the signed-in user
  2: map<string, i32> guideStates,           // as in GetUserGuideStatusResult
  3: map<string, string> extraParam,
}

/** The states as kept. */
struct SetUserGuideStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, i32> guideStates,
  4: map<string, common.ServerErrorInfo> failedItems, // by guide id
  5: map<string, string> extraParam,
}

/** Asks for pictures of users. */
struct GetUserThumbnailArg {
  1: list<GetUserThumbnailArgEntry> users,
  2: i32 edge,                               // of the square picture, in real pixels; 0 as it is
  3: map<string, string> extraParam,
}

/** The pictures at hand; those being fetched follow as a push. */
struct GetUserThumbnailResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<UserThumbnailEntry> thumbnails,
  4: map<string, common.ServerErrorInfo> failedItems, // by user id
  5: map<string, string> extraParam,
}

/** Lists the users known on this machine. */
struct GetUsersArg {
  1: bool loginedOnly,                       // leaves out those who have signed out
  2: i32 offset,
  3: i32 count,
  4: map<string, string> extraParam,
}

/** The users, the last signed-in first. */
struct GetUsersResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.UserData> users,
  4: string currentUserId,                   // empty when nobody is signed in
  5: map<string, i64> loginTimes,            // by user id, the last sign-in
  6: i64 total,
  7: map<string, string> extraParam,
}

/** Signs a user out. */
struct LogoutArg {
  1: string userId,                          // empty for the signed-in user
  2: bool clearCache,                        // removes the local copies that are in the cloud
  3: bool force,                             // drops uploads that still wait; else they are an error
  4: string reason,                          // for the log
  5: map<string, string> extraParam,
}

/** Who is signed out, or what stood in the way. */
struct LogoutResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string userId,
  4: list<string> waitingTaskIds,            // uploads that wait, when they stopped the sign-out
  5: map<string, string> extraParam,
}

/** A client says that it is about to end. */
struct NotifyExitArg {
  1: string clientName,                      // as GetVersionArg.clientName
  2: i64 processId,
  3: i32 exitReason,                         // 0 by the user, 1 end of the session, 2 update, 3 fault
  4: bool stopService,                       // the service ends too when no other client is there
  5: map<string, string> extraParam,
}

/** What goes on without the client. */
struct NotifyExitResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 clientCount,                        // other clients still connected
  4: i32 runningTaskCount,                   // transfers that are not done
  5: bool serviceStops,
  6: map<string, string> extraParam,
}

/** Hands over one event of the usage statistics. */
struct ReportDcInfocArg {
  1: string eventName,
  2: map<string, string> params,
  3: i64 time,
  4: map<string, string> extraParam,
}

/** Whether the event was kept. */
struct ReportDcInfocResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool recorded,                          // false while statistics are switched off
  4: map<string, string> extraParam,
}

/** Asks for what is known of a user beyond name and picture. */
struct UserExtraInfoArg {
  1: string userId,                          // empty for the signed-in user
  2: list<string> keys,                      // entries of infos that are wanted; empty for all
  3: map<string, string> extraParam,
}

/** The user, the membership and the company. */
struct UserExtraInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.UserData user,
  4: i32 loginState,                         // 0 signed out, 1 local account, 2 signed in, 3 sign-in has run out
  5: string vipType,                         // "normal", "super" or "plume"
  6: i64 vipExpireTime,                      // 0 for never
  7: string companyId,
  8: string companyName,
  9: map<string, string> infos,              // further entries by name
  10: map<string, string> extraParam,
}

/** Asks for one official document: a guide or template that the cloud gives to everybody. */
struct GetOfficialDocArg {
  1: string fileId,
  2: string language,                        // as "en_US"; the nearest one is given
  3: map<string, string> extraParam,
}

/** The document and where to read it. */
struct GetOfficialDocResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: string url,                             // to read it without a copy; may be empty
  5: string language,
  6: map<string, string> extraParam,
}

/** Lists the official documents. */
struct GetOfficialDocListArg {
  1: string category,                        // empty for all
  2: string language,                        // as "en_US"; the nearest one is given
  3: i32 offset,
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The documents in the order to show them. */
struct GetOfficialDocListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,
  4: list<string> categories,                // all there are
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Asks whether the assistant's panel is switched on. */
struct GetAIPanelSwitchArg {
  1: string userId,                          // empty for the signed-in user
  2: string panelId,                         // empty for the main window's
  3: map<string, string> extraParam,
}

/** The switch. */
struct GetAIPanelSwitchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool enabled,
  4: bool changeable,                        // false when the company decides
  5: map<string, string> extraParam,
}

/** Switches the assistant's panel on or off. */
struct SetAIPanelSwitchArg {
  1: string userId,                          // empty for the signed-in user
  2: string panelId,                         // empty for the main window's
  3: bool enabled,
  4: map<string, string> extraParam,
}

/** The switch afterwards. */
struct SetAIPanelSwitchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool enabled,
  4: map<string, string> extraParam,
}

/** Removes local copies that are safely in the cloud. */
struct ClearCacheArg {
  1: string userId,                          // empty for the signed-in user
  2: list<common.CloudItemId> items,         // empty for everything
  3: i64 unusedSince,                        // only copies not opened since then; 0 for all
  4: bool dryRun,                            // only counts
  5: map<string, string> extraParam,
}

/** What was removed; copies with changes or in use stay. */
struct ClearCacheResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 clearedSize,                        // bytes
  4: i64 clearedCount,
  5: i64 keptSize,                           // bytes
  6: map<string, common.ServerErrorInfo> failedItems, // by item id, those that stay
  7: map<string, string> extraParam,
}

/** Changes how a list of cloud items is shown, for all clients of the user. */
struct ChangeDisplayModeArg {
  1: string page,                            // its source key, for instance "TeamFile"; empty for all pages
  2: i32 displayMode,                        // 0 list, 1 icons, 2 list with pictures
  3: i32 orderBy,                            // 0 name, 1 mtime, 2 size, 3 type, 4 ctime
  4: bool descending,
  5: map<string, string> extraParam,
}

/** How it is shown now. */
struct ChangeDisplayModeResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string page,
  4: i32 displayMode,
  5: i32 orderBy,
  6: bool descending,
  7: map<string, string> extraParam,
}

/** Who is signed in. */
struct GetUserIdResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string userId,                          // empty when nobody is
  4: i32 loginState,                         // as UserExtraInfoResult.loginState
  5: map<string, string> extraParam,
}

/** The entry of the official documents: whether it is shown, and what is new behind it. */
struct OfficialDocResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool visible,
  4: common.CloudItem folder,                // the space that holds them
  5: i32 unreadCount,                        // documents added since the user last looked
  6: common.CloudItem latestItem,
  7: map<string, string> extraParam,
}
