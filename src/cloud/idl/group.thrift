/** Groups, teams and companies: who belongs to them, what they are called, and the changes a member may ask for. */
include "common.thrift"
namespace cpp zel.vela
namespace py zelwire.group

/** A group in short, for headings and pickers. */
struct GroupData {
  1: string id,
  2: string name,
  3: string type,                            // as GroupInfo.type
  4: string companyId,                       // empty for a private group
  5: string avatarUrl,
}

/** A group or team with the asking user's part in it. */
struct GroupInfo {
  1: i32 state,                              // 0 usable, 1 archived, 2 removed, 3 the user is no member
  2: string id,
  3: i64 ctime,
  4: i64 mtime,
  5: string name,
  6: string creator,                         // the creator's name
  7: string type,                            // "special" (the user's own), "normal", "team" or "corp"
  8: string cache,                           // path of the local copy, empty when there is none
  9: string userRole,                        // of the asking user: "owner", "admin", "editor", "reader"
  10: common.UserAcl userAcl,
  11: i64 member_count,
  12: bool autoUpdate,                       // the local copy follows the cloud
  13: string creator_id,
  14: string creator_avatar,
  15: string companyId,
  16: string linkFolderId,                   // set when the group was made by sharing this folder
  17: map<string, string> extraParam,
}

/** A member of a group, or the outcome of a change to that member. */
struct GroupMemberInfo {
  1: i32 state,                              // 0 member, 1 invited, 2 asked to join, 3 left
  2: string userId,
  3: string groupId,
  4: string memberId,                        // of the membership, not of the person
  5: string name,
  6: string avatarUrl,
  7: string userRole,                        // as GroupInfo.userRole
  8: string result,                          // "ok", or the error's name when a change failed
  9: string msg,                             // one sentence to result; for the log
  10: map<string, string> extraParam,
}

/** Who did something in a group, and when. */
struct GroupOperator {
  1: string userId,
  2: string userName,
  3: string userAvatar,
  4: string companyId,
  5: i64 time,
}

/** Why one person could not be added. */
struct AddGroupMemberFailedInfo {
  1: string userId,
  2: string name,
  3: string result,                          // "notFound", "alreadyMember", "full", "denied"
  4: string msg,                             // one sentence; for the log
}

/** A member of a document team with rights given by role. */
struct DocteamUserV2 {
  1: string userId,
  2: string groupId,
  3: string name,
  4: string avatarUrl,
  5: string companyId,
  6: string department,
  7: i32 memberType,                         // 0 a person, 1 a department, 2 a group
  8: common.UserAclV2 userAcl,
  9: i64 ctime,                              // when the person joined
  10: map<string, string> extraParam,
}

/** A group of a company with its place in that company. */
struct CompanyGroupItem {
  1: string companyId,
  2: string companyName,
  3: string parentGroupId,                   // empty at the top of the company
  4: string path,                            // names from the company down, joined with "/"
  5: GroupInfo groupInfo,
  6: i32 childCount,                         // groups directly below this one
  7: i32 unreadCount,                        // events of the group that the user has not seen
  8: map<string, string> extraParam,
}

/** A company that the user belongs to. */
struct CompanyItem {
  1: string companyId,
  2: string companyName,
  3: string shortName,
  4: string logoUrl,
  5: i32 state,                              // 0 active, 1 waits for approval, 2 frozen
  6: string userRole,                        // "owner", "admin", "member" or "guest"
  7: i64 memberCount,
  8: string rootGroupId,                     // the space that every member sees
  9: i64 ctime,
  10: i64 mtime,
  11: map<string, string> extraParam,
}

/** A space of a company and how full it is. */
struct CompanySpaceItem {
  1: string companyId,
  2: string groupId,
  3: string name,
  4: string type,                            // as GroupInfo.type
  5: i64 totalSize,                          // bytes; 0 when there is no limit
  6: i64 usedSize,
  7: i64 fileCount,
  8: common.UserAcl userAcl,
  9: i64 ctime,
  10: i64 mtime,
  11: map<string, string> extraParam,
}

/** Adds people to a group, all in one role. */
struct AddGroupMembersArg {
  1: string groupId,
  2: list<string> userIds,
  3: string userRole,                        // as GroupInfo.userRole, but not "owner"
  4: string msg,                             // greeting in the invitation, may be empty
  5: bool notifyMembers,                     // sends each new member a message
  6: map<string, string> extraParam,
}

/** Who was added and who was not; state is 0 when at least one was. */
struct AddGroupMembersResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<GroupMemberInfo> members,          // the added ones
  4: list<AddGroupMemberFailedInfo> failedMembers,
  5: i64 memberCount,                        // of the group afterwards
  6: map<string, string> extraParam,
}

/** Gives one member another role. */
struct ChangeMemberRoleArg {
  1: string groupId,
  2: string userId,
  3: string userRole,                        // "owner" hands the group over
  4: map<string, string> extraParam,
}

/** The member in the new role. */
struct ChangeMemberRoleResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupMemberInfo member,
  4: string ownUserRole,                     // of the asking user afterwards; changes when the group is handed over
  5: map<string, string> extraParam,
}

/** Looks for groups by name. */
struct CompanyGroupSearchArg {
  1: string companyId,                       // empty for all companies of the user
  2: string keyword,
  3: list<string> types,                     // as GroupInfo.type; empty for all
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The groups found, best match first. */
struct CompanyGroupSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string keyword,                         // as asked, to tell a late answer
  4: list<CompanyGroupItem> groups,
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Makes a group of people who share files. */
struct CreateGroupArg {
  1: string name,
  2: string companyId,                       // empty for a private group
  3: string type,                            // as GroupInfo.type; empty for "normal"
  4: list<string> userIds,                   // first members beside the asking user
  5: string userRole,                        // of those members
  6: map<string, string> extraParam,
}

/** The new group. */
struct CreateGroupResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupInfo groupInfo,
  4: list<AddGroupMemberFailedInfo> failedMembers,
  5: map<string, string> extraParam,
}

/** Makes a team with a document space of its own inside a company. */
struct CreateTeamArg {
  1: string companyId,
  2: string parentGroupId,                   // empty for the top of the company
  3: string name,
  4: string description,
  5: i32 visibility,                         // 0 members only, 1 the company sees it, 2 the company may join
  6: list<DocteamUserV2> members,            // userId, memberType and userAcl.role are read
  7: map<string, string> extraParam,
}

/** The new team and the folder that holds its documents. */
struct CreateTeamResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupInfo groupInfo,
  4: common.CloudItem rootItem,
  5: list<AddGroupMemberFailedInfo> failedMembers,
  6: map<string, string> extraParam,
}

/** Lists the groups of a company, one level at a time. */
struct GetCompanyGroupInfoListArg {
  1: string companyId,
  2: string parentGroupId,                   // empty for the top
  3: list<string> types,                     // as GroupInfo.type; empty for all
  4: i32 orderBy,                            // 0 name, 1 mtime newest first, 2 ctime newest first
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The groups of that level. */
struct GetCompanyGroupInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CompanyGroupItem> groups,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Lists the companies of a user. */
struct GetCompanyInfoListArg {
  1: string userId,                          // empty for the signed-in user
  2: bool activeOnly,                        // leaves out companies whose state is not 0
  3: i32 offset,
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The companies, the one in use named apart. */
struct GetCompanyInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CompanyItem> companies,
  4: string currentCompanyId,                // empty when the user works for none
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Asks how many notices of companies wait for the user. */
struct GetCompanyNotifyCountsArg {
  1: list<string> companyIds,                // empty for all companies of the user
  2: i64 sinceTime,                          // counts only newer ones; 0 for all unread
  3: map<string, string> extraParam,
}

/** Waiting notices by company. */
struct GetCompanyNotifyCountsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: map<string, i32> notifyCounts,          // by company id; a company without notices has 0
  4: map<string, common.ServerErrorInfo> failedItems, // by company id
  5: i64 total,                              // sum of the counts
  6: map<string, string> extraParam,
}

/** Lists the spaces of a company that the user may enter. */
struct GetCompanySpaceListArg {
  1: string companyId,
  2: list<string> types,                     // as GroupInfo.type; empty for all
  3: i32 offset,
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The spaces and their sizes. */
struct GetCompanySpaceListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<CompanySpaceItem> spaces,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Asks for one group. */
struct GetGroupInfoArg {
  1: string groupId,
  2: bool withRights,                        // fills userAcl, which costs the service a request more
  3: map<string, string> extraParam,
}

/** The group. */
struct GetGroupInfoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupInfo groupInfo,
  4: common.UserData creator,
  5: map<string, string> extraParam,
}

/** Asks for several groups, or for all groups of the user. */
struct GetGroupInfoListArg {
  1: list<string> groupIds,                  // empty for all groups of the user
  2: list<string> types,                     // as GroupInfo.type; empty for all
  3: i32 orderBy,                            // 0 name, 1 mtime newest first, 2 ctime newest first
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The groups found; asked ids without a group are in failedItems. */
struct GetGroupInfoListResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<GroupInfo> groups,
  4: map<string, common.ServerErrorInfo> failedItems, // by group id
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Asks for an address that lets its reader join a group. */
struct GetGroupInviteLinkArg {
  1: string groupId,
  2: string userRole,                        // of those who join by it
  3: i64 expireTime,                         // 0 for never
  4: bool needApproval,                      // an admin confirms each join
  5: bool renew,                             // makes a new address; the old one ends
  6: map<string, string> extraParam,
}

/** The address to hand on. */
struct GetGroupInviteLinkResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupData group,
  4: string url,
  5: string userRole,
  6: i64 expireTime,                         // 0 for never
  7: bool needApproval,
  8: map<string, string> extraParam,
}

/** Lists the members of a group. */
struct GetGroupMembersArg {
  1: string groupId,
  2: string keyword,                         // part of the name; empty for all
  3: list<string> userRoles,                 // as GroupInfo.userRole; empty for all
  4: i32 offset,
  5: i32 count,
  6: map<string, string> extraParam,
}

/** The members, owner and admins first. */
struct GetGroupMembersResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<GroupMemberInfo> members,
  4: i64 total,
  5: map<string, string> extraParam,
}

/** Asks for the notice pinned in a group. */
struct GetGroupNoticeArg {
  1: string groupId,
  2: map<string, string> extraParam,
}

/** The notice; noticeId is empty when none is pinned. */
struct GetGroupNoticeResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string noticeId,
  4: string content,
  5: GroupOperator publisher,
  6: bool bRead,                             // seen by the asking user
  7: map<string, string> extraParam,
}

/** Pins a notice in a group; an empty content takes it down. */
struct SetGroupNoticeArg {
  1: string groupId,
  2: string content,
  3: bool notifyMembers,
  4: map<string, string> extraParam,
}

/** The notice as pinned. */
struct SetGroupNoticeResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string noticeId,                        // empty when it was taken down
  4: GroupOperator publisher,
  5: map<string, string> extraParam,
}

/** Dissolves a group. */
struct RemoveGroupArg {
  1: string groupId,
  2: bool keepFiles,                         // moves its files to the owner's own space first
  3: map<string, string> extraParam,
}

/** What became of the group and its files. */
struct RemoveGroupResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string groupId,
  4: common.CloudItem keptFolder,            // where the files went; its id is empty when they were not kept
  5: map<string, string> extraParam,
}

/** Takes people out of a group; the asking user's own id leaves it. */
struct RemoveGroupMemberArg {
  1: string groupId,
  2: list<string> userIds,
  3: string successorId,                     // gets their documents; empty for the group's owner
  4: map<string, string> extraParam,
}

/** Who is out; asked ids that stayed are in failedItems. */
struct RemoveGroupMemberResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> userIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by user id
  5: i64 memberCount,                        // of the group afterwards
  6: map<string, string> extraParam,
}

/** Gives a group another name. */
struct RenameGroupArg {
  1: string groupId,
  2: string name,
  3: map<string, string> extraParam,
}

/** The group under its new name. */
struct RenameGroupResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupInfo groupInfo,
  4: string oldName,
  5: map<string, string> extraParam,
}

/** Changes a team: "setUsers", "removeUsers", "setVisibility", "describe", "archive" or "restore". */
struct TeamManageArg {
  1: string groupId,
  2: string action,                          // one of the six names above
  3: list<DocteamUserV2> users,              // for the two actions on users
  4: i32 visibility,                         // for "setVisibility", as CreateTeamArg.visibility
  5: string description,                     // for "describe"
  6: map<string, string> extraParam,
}

/** The team after the change. */
struct TeamManageResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: GroupInfo groupInfo,
  4: list<DocteamUserV2> users,              // those that the action touched
  5: map<string, common.ServerErrorInfo> failedItems, // by user id
  6: map<string, string> extraParam,
}
