/** Links to documents and shared folders: making, changing, joining, leaving and closing them. */
include "common.thrift"
include "group.thrift"
namespace cpp zel.vela
namespace py zelwire.link

/** The file or folder that a link leads to. */
struct LinkFileInfo {
  1: string fileId,
  2: string groupId,
  3: string parentId,
  4: string name,
  5: string type,                            // as CloudItem.type
  6: i64 size,                               // bytes
  7: i64 fver,                               // the cloud's version
  8: i64 ctime,
  9: i64 mtime,
  10: bool deleted,
  11: string modifierId,
  12: string modifierName,
  13: common.UserAcl userAcl,                // of the asking user, by this link
  14: map<string, string> extraParam,
}

/** A shared document as lists show it. */
struct LinkInfo {
  1: string id,                              // the link's sid
  2: string shareType,                       // "file", "folder" or "group"
  3: string shareName,
  4: string groupId,
  5: string groupCorpId,
  6: i64 ctime,
  7: string creatorId,
  8: string creatorName,
  9: string creatorAvatar,
  10: string creatorCorpId,
  11: string userRole,                       // of the asking user: "owner", "editor" or "reader"
  12: i64 mtime,
  13: LinkFileInfo fileInfo,
  14: string cachePath,                      // of the local copy, empty when there is none
  15: map<string, string> extraParam,
}

/** The settings of a link and how much it is used. */
struct LinkDetail {
  1: string sid,
  2: string url,
  3: i32 linkState,                          // 0 open, 1 closed, 2 expired, 3 the document is gone, 4 forbidden
  4: i32 linkRange,                          // who may open it: 0 members only, 1 the company, 2 everybody
  5: string companyId,                       // the company of range 1
  6: string userRole,                        // of those who open it: "editor" or "reader"
  7: bool needChkCode,
  8: string chkCode,                         // given to the creator only
  9: i64 expireTime,                         // 0 for never
  10: bool allowDownload,
  11: bool allowCopy,
  12: bool allowComment,
  13: bool needApproval,                     // the creator confirms each new member
  14: i64 openCount,
  15: i64 memberCount,
  16: i64 ctime,
  17: i64 mtime,
  18: map<string, string> extraParam,
}

/** A person who may use a link. */
struct LinkMemberInfo {
  1: string sid,
  2: string userId,
  3: string name,
  4: string avatarUrl,
  5: string companyId,
  6: string userRole,                        // "owner", "editor" or "reader"
  7: i32 memberState,                        // 0 member, 1 invited, 2 waits for approval, 3 left
  8: i64 ctime,                              // when the person joined
  9: i64 openTime,                           // when the person last opened it, 0 for never
  10: map<string, string> extraParam,
}

/** A company to which a document may be opened. */
struct LinkCompanyInfo {
  1: string companyId,
  2: string companyName,
  3: string logoUrl,
  4: bool canShare,                          // false when the company's rules forbid it
  5: list<i32> linkRanges,                   // allowed values of LinkDetail.linkRange
  6: i32 defaultLinkRange,
  7: map<string, string> extraParam,
}

/** A link together with the asking user's part in it. */
struct MyLinkInfo {
  1: LinkInfo linkInfo,
  2: LinkDetail linkDetail,
  3: LinkMemberInfo member,                  // the asking user; its userId is empty for a stranger
  4: bool isCreator,                         // the asking user made it
  5: bool bRead,                             // opened by the asking user since it last changed
  6: map<string, string> extraParam,
}

/** Asks whether a folder may become a shared folder. */
struct CanShareFolderArg {
  1: common.CloudItemId item,
  2: string companyId,                       // whose rules apply; empty for the company in use
  3: map<string, string> extraParam,
}

/** The verdict, and the group when the folder is shared already. */
struct CanShareFolderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool canShare,
  4: i32 reason,                             // 0 none, 1 shared already, 2 inside or around a shared one, 3 no right,
                                             // 4 too many items, 5 forbidden by the company
  5: string linkGroupId,                     // for reason 1
  6: map<string, string> extraParam,
}

/** Ends the sharing of files: their links close and their members go. */
struct CancelFileShareArg {
  1: list<common.CloudItemId> items,
  2: bool notifyMembers,
  3: map<string, string> extraParam,
}

/** The files that are no longer shared. */
struct CancelFileShareResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> ids,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Takes links off the list of shared documents: own ones close, others are left. */
struct CancelLinkArg {
  1: list<string> sids,
  2: map<string, string> extraParam,
}

/** The links that are off the list. */
struct CancelLinkResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> sids,
  4: map<string, common.ServerErrorInfo> failedItems, // by sid
  5: map<string, string> extraParam,
}

/** Turns a shared folder back into a private one. */
struct CancelShareFolderArg {
  1: common.CloudItemId item,
  2: string linkGroupId,
  3: bool notifyMembers,
  4: map<string, string> extraParam,
}

/** The folder afterwards. */
struct CancelShareFolderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: i64 removedMemberCount,
  5: map<string, string> extraParam,
}

/** Changes settings of a link; only the fields named are taken over. */
struct ChangeLinkSettingArg {
  1: string sid,
  2: LinkDetail linkDetail,
  3: list<string> changedFields,             // names of fields of LinkDetail, from linkRange to needApproval
  4: map<string, string> extraParam,
}

/** The settings afterwards. */
struct ChangeLinkSettingResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: LinkDetail linkDetail,
  4: map<string, common.ServerErrorInfo> failedItems, // by field name, those that were refused
  5: map<string, string> extraParam,
}

/** Closes a link for everybody; the document and its members stay. */
struct CloseLinkV3Arg {
  1: string sid,
  2: common.CloudItemId item,                // names the link when sid is empty
  3: bool removeMembers,
  4: map<string, string> extraParam,
}

/** The closed link. */
struct CloseLinkV3Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: LinkDetail linkDetail,
  4: map<string, string> extraParam,
}

/** Makes a shared folder, new or out of a folder that is there. */
struct CreateShareFolderArg {
  1: common.CloudItemId item,                // an empty id makes a new folder in parentId
  2: string name,                            // of a new folder
  3: list<string> userIds,                   // first members
  4: string userRole,                        // of those members
  5: bool withLink,                          // makes a link to hand on too
  6: map<string, string> extraParam,
}

/** The shared folder, its group and its link. */
struct CreateShareFolderResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: common.CloudItem item,
  4: group.GroupInfo groupInfo,
  5: LinkDetail linkDetail,                  // its sid is empty when no link was asked for
  6: list<group.AddGroupMemberFailedInfo> failedMembers,
  7: map<string, string> extraParam,
}

/** Adds, changes and removes people of a link. */
struct EditLinkMemberArg {
  1: string sid,
  2: list<LinkMemberInfo> members,           // to add or change; userId, userRole and memberState are read
  3: list<string> removedUserIds,
  4: bool notifyMembers,
  5: map<string, string> extraParam,
}

/** The people that changed. */
struct EditLinkMemberResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<LinkMemberInfo> members,           // added and changed ones
  4: list<string> removedUserIds,
  5: map<string, common.ServerErrorInfo> failedItems, // by user id
  6: i64 memberCount,                        // of the link afterwards
  7: map<string, string> extraParam,
}

/** Leaves documents that others have shared, named by the documents. */
struct ExitLinkArg {
  1: list<common.CloudItemId> items,
  2: map<string, string> extraParam,
}

/** The documents that were left. */
struct ExitLinkResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> ids,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Leaves documents that others have shared, named by their links. */
struct ExitLinkBySidArg {
  1: list<string> sids,
  2: map<string, string> extraParam,
}

/** The links that were left. */
struct ExitLinkBySidResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> sids,
  4: map<string, common.ServerErrorInfo> failedItems, // by sid
  5: map<string, string> extraParam,
}

/** Leaves one link, keeping a copy of the document when wanted. */
struct ExitLinkV3Arg {
  1: string sid,
  2: common.CloudItemId copyTarget,          // groupId and parentId of the copy; an empty groupId keeps none
  3: bool removeRecent,                      // takes the document off the recent list too
  4: map<string, string> extraParam,
}

/** The link that was left and the copy. */
struct ExitLinkV3Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string sid,
  4: common.CloudItem copiedItem,            // its id is empty when no copy was asked for
  5: map<string, string> extraParam,
}

/** Lists the companies to which a document may be opened. */
struct GetLinkCompanyListArg {
  1: common.CloudItemId item,
  2: i32 offset,
  3: i32 count,
  4: map<string, string> extraParam,
}

/** The companies, the one in use first. */
struct GetLinkCompanyListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<LinkCompanyInfo> companies,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Asks what an older link has become. */
struct GetLinkConvertInfoArg {
  1: string sid,
  2: string url,                             // names the link when sid is empty
  3: bool convert,                           // makes the new link when there is none yet
  4: map<string, string> extraParam,
}

/** The link in its present form. */
struct GetLinkConvertInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 convertState,                       // 0 no need, 1 can be converted, 2 converted, 3 cannot be
  4: string oldSid,
  5: LinkDetail linkDetail,                  // for states 0 and 2
  6: map<string, string> extraParam,
}

/** Asks what a link leads to. */
struct GetLinkInfoArg {
  1: string sid,
  2: common.CloudItemId item,                // names the link when sid is empty
  3: string chkCode,                         // when the link needs one
  4: i32 memberCount,                        // most members to list; 0 for none
  5: map<string, string> extraParam,
}

/** The link; without the right code only linkDetail is filled, as far as a stranger may see it. */
struct GetLinkInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: LinkInfo linkInfo,
  4: LinkDetail linkDetail,
  5: list<LinkMemberInfo> members,           // owner first; linkDetail.memberCount says how many there are
  6: bool chkCodeWrong,
  7: map<string, string> extraParam,
}

/** Lists the documents that the user has shared or was given. */
struct GetLinkInfoListArg {
  1: i32 direction,                          // 0 both, 1 shared by the user, 2 shared by others
  2: string keyword,                         // part of the name; empty for all
  3: list<string> shareTypes,                // as LinkInfo.shareType; empty for all
  4: i32 orderBy,                            // 0 mtime newest first, 1 ctime newest first, 2 name
  5: bool openOnly,                          // leaves out links whose linkState is not 0
  6: i32 offset,
  7: i32 count,
  8: map<string, string> extraParam,
}

/** The shared documents. */
struct GetLinkInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<MyLinkInfo> links,
  4: i32 unreadCount,                        // of all that match
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Makes a link to a document, or gives the open one. */
struct MakeLinkV3Arg {
  1: common.CloudItemId item,
  2: i32 linkRange,                          // as LinkDetail.linkRange
  3: string companyId,                       // for range 1; empty for the company in use
  4: string userRole,                        // of those who open it: "editor" or "reader"
  5: i64 expireTime,                         // 0 for never
  6: string chkCode,                         // empty for none
  7: bool allowDownload,
  8: bool allowCopy,
  9: bool allowComment,
  10: bool renew,                            // makes a new link; the open one closes
  11: map<string, string> extraParam,
}

/** The link to hand on. */
struct MakeLinkV3Result {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: LinkInfo linkInfo,
  4: LinkDetail linkDetail,
  5: bool existing,                          // an open link was given, with the settings it had
  6: map<string, string> extraParam,
}

/** Tells the service that documents are being dragged onto a chat program. */
struct NotifyDrag2ImShareArg {
  1: i32 dragState,                          // 0 begun, 1 dropped, 2 given up
  2: string imType,                          // key of the chat program, "qqtim" or "wechat"; empty when unknown
  3: list<common.CloudItemId> items,
  4: list<string> paths,                     // of local documents that are not in the cloud
  5: string caller,                          // "zelbox" for the box
  6: map<string, string> extraParam,
}

/** What the drop hands to the chat program. */
struct NotifyDrag2ImShareResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 shareMode,                          // 0 the files themselves, 1 links, 2 ask the user with the dialog
  4: list<LinkDetail> links,                 // for mode 1, in the order of the items
  5: map<string, common.ServerErrorInfo> failedItems, // by item id or path
  6: map<string, string> extraParam,
}

/** Sets, renews or removes the code that a link asks for. */
struct SetLinkChkCodeArg {
  1: string sid,
  2: bool needChkCode,
  3: string chkCode,                         // empty to have one made
  4: map<string, string> extraParam,
}

/** The code in force. */
struct SetLinkChkCodeResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string sid,
  4: bool needChkCode,
  5: string chkCode,
  6: map<string, string> extraParam,
}

/** Opens the dialog that asks how dragged documents are to be shared. */
struct ShowDrag2ImShareDlgArg {
  1: string imType,                          // as NotifyDrag2ImShareArg.imType
  2: list<common.CloudItemId> items,
  3: list<string> paths,                     // of local documents that are not in the cloud
  4: string caller,                          // "zelbox" for the box
  5: i64 windowId,                           // the window it belongs to, 0 for none
  6: i32 posX,                               // where the drop was, in pixels of the screen
  7: i32 posY,
  8: map<string, string> extraParam,
}

/** What the user chose. */
struct ShowDrag2ImShareDlgResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool accepted,
  4: i32 shareMode,                          // 0 the files themselves, 1 links
  5: bool remember,                          // the user does not want to be asked again
  6: list<LinkDetail> links,                 // for mode 1, in the order of the items
  7: map<string, string> extraParam,
}

/** Opens the dialog that shares one document. */
struct ShowFileShareDlgArg {
  1: string fileId,                          // empty for a local document, which is uploaded first
  2: string groupId,
  3: string parentId,
  4: string fileName,
  5: string filePath,                        // local path, empty when there is no copy
  6: i64 accessTime,                         // last opened; seconds since 1970 UTC, not milliseconds
  7: string caller,                          // "zelbox" for the box
  8: i64 windowId,                           // the window it belongs to, 0 for none
  9: map<string, string> extraParam,
}

/** How the dialog ended. */
struct ShowFileShareDlgResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: bool accepted,                          // false when it was closed without sharing
  4: LinkInfo linkInfo,
  5: LinkDetail linkDetail,
  6: map<string, string> extraParam,
}
