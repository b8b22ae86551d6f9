/** Searching the cloud: documents by name and by content, smart filters and categories, templates and functions. */
include "common.thrift"
include "group.thrift"
namespace cpp zel.vela
namespace py zelwire.search

/** What a sentence typed into the search box was understood to ask for; empty fields do not narrow. */
struct AISearchFilters {
  1: list<string> keywords,
  2: list<string> suffixes,                  // without the dot, "docx", "pdf" …
  3: list<string> creatorIds,
  4: list<string> groupIds,
  5: list<string> categoryIds,
  6: i64 startTime,                          // of mtime; 0 open
  7: i64 endTime,                            // of mtime, exclusive; 0 open
  8: i64 minSize,                            // bytes
  9: i64 maxSize,                            // bytes; 0 open
  10: string source,                         // how files came: "upload", "share", "radar", "backup"; empty: any
  11: map<string, string> extraParam,
}

/** State of the content search for one of the user's accounts. */
struct ChangeContentSearchStatusUserInfoItem {
  1: string userId,
  2: string companyId,                       // empty for the private account
  3: string companyName,
  4: i32 status,                             // as GetContentSearchStatusResult.status
}

/** A document whose content matches. */
struct CloudDocContentSearchFileInfoItem {
  1: common.CloudItem item,
  2: string groupName,
  3: string path,                            // the names from the space's root joined with "/"
  4: list<string> snippets,                  // best first; matching words between <em> and </em>
  5: string highlightName,                   // the name marked in the same way
  6: double score,                           // higher is nearer
  7: i32 matchCount,                         // places in the document
  8: common.UserData creator,
  9: map<string, string> extraParam,
}

/** A document whose name matches. */
struct CloudDocSearchFileInfoItem {
  1: common.CloudItem item,
  2: string groupName,
  3: string path,                            // the names from the space's root joined with "/"
  4: string highlightName,                   // matching words between <em> and </em>
  5: double score,                           // higher is nearer
  6: common.UserData creator,
  7: bool isShareByOthers,
  8: map<string, string> extraParam,
}

/** A group or team whose name matches. */
struct CloudDocSearchGroupInfoItem {
  1: group.GroupInfo groupInfo,
  2: string highlightName,                   // matching words between <em> and </em>
  3: i64 fileCount,
  4: string companyName,                     // empty for a private group
  5: map<string, string> extraParam,
}

/** A term that many look for among the templates. */
struct PlumeHotSearchItem {
  1: string keyword,
  2: i32 rank,                               // from 1
  3: i64 searchCount,
  4: string label,                           // "hot", "new" or empty
  5: string url,                             // page to open instead of a search; as a rule empty
}

/** A template, picture or other material that matches. */
struct PlumeSearchItem {
  1: string id,
  2: string title,
  3: string highlightTitle,                  // matching words between <em> and </em>
  4: string kind,                            // "template", "picture", "icon", "font", "chart"
  5: string appType,                         // program it is for, as RecentFileItem.appType
  6: string thumbnail,                       // address of the picture
  7: string url,                             // page with details
  8: string downloadUrl,
  9: string memberKind,                      // membership needed: empty, "normal", "super" or "plume"
  10: i64 size,
  11: i64 downloadCount,
  12: list<string> tags,
  13: string author,
  14: i64 mtime,
  15: map<string, string> extraParam,
}

/** A function or small tool that can be started from the search. */
struct PlumeWidgetItem {
  1: string id,
  2: string name,
  3: string description,
  4: string iconUrl,
  5: string category,
  6: string action,                          // command or address that starts it
  7: map<string, string> params,             // of the action
  8: string memberKind,                      // as PlumeSearchItem.memberKind
  9: bool isNew,
  10: i32 sortOrder,                         // smaller first
  11: map<string, string> extraParam,
}

/** A smart category and how much lies in it. */
struct FileCategoryDetails {
  1: string categoryId,
  2: string categoryName,
  3: string parentCategoryId,                // empty at the top
  4: i64 fileCount,
  5: string iconUrl,
  6: i32 source,                             // 0 found by the service, 1 made by the user
  7: i64 mtime,
}

/** Ends a search that runs; its request is answered with the error "cancelled". */
struct CancelSearchRequestArg {
  1: string uuid,                            // of the search; empty: all of this client
  2: map<string, string> extraParam,
}

/** Which searches were ended. */
struct CancelSearchRequestResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> cancelledUuids,            // empty when they had been answered already
  4: map<string, string> extraParam,
}

/** Turns the content search on or off. */
struct ChangeContentSearchStatusArg {
  1: string userId,
  2: string companyId,                       // empty for the private account
  3: bool enable,
  4: string callFrom,                        // "searchpanel", "setting"
  5: map<string, string> extraParam,
}

/** State of the content search after the change. */
struct ChangeContentSearchStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 status,                             // as GetContentSearchStatusResult.status
  4: list<ChangeContentSearchStatusUserInfoItem> userInfos, // all accounts of the user
  5: map<string, string> extraParam,
}

/** Looks for a term in the content of documents. */
struct CloudDocContentSearchArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string userId,
  3: string keyword,
  4: list<string> groupIds,                  // spaces to look in; empty for all
  5: list<string> suffixes,                  // without the dot; empty for all
  6: AISearchFilters filters,
  7: i32 orderBy,                            // 0 nearest first, 1 mtime newest first, 2 name, 3 size largest first
  8: i32 offset,
  9: i32 count,
  10: i32 snippetLength,                     // characters of a snippet; 0 for the service's choice
  11: map<string, string> extraParam,
}

/** Documents with the term in their content. */
struct CloudDocContentSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notSupported" for an enterprise account
  3: string uuid,                            // of the request
  4: string keyword,
  5: list<CloudDocContentSearchFileInfoItem> files,
  6: i64 total,
  7: bool hasMore,
  8: i32 status,                             // as GetContentSearchStatusResult.status
  9: map<string, string> extraParam,
}

/** Looks for a term in the names of documents, folders and groups. */
struct CloudDocSearchArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string userId,
  3: string keyword,
  4: list<string> groupIds,                  // spaces to look in; empty for all
  5: list<string> suffixes,                  // without the dot; empty for all
  6: AISearchFilters filters,
  7: bool withGroups,                        // look among the names of groups too
  8: i32 orderBy,                            // as CloudDocContentSearchArg.orderBy
  9: i32 offset,                             // of the files; groups come with offset 0 only
  10: i32 count,
  11: map<string, string> extraParam,
}

/** Documents, folders and groups with the term in their names. */
struct CloudDocSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the request
  4: string keyword,
  5: list<CloudDocSearchFileInfoItem> files,
  6: list<CloudDocSearchGroupInfoItem> groups,
  7: i64 total,                              // files
  8: bool hasMore,
  9: map<string, string> extraParam,
}

/** Asks which functions fit what the user types or works on. */
struct PlumeFuncRecommendArg {
  1: string keyword,                         // empty: by the document only
  2: string appType,                         // as RecentFileItem.appType
  3: string fileId,                          // document at hand; may be empty
  4: i32 count,
  5: map<string, string> extraParam,
}

/** The functions, best first. */
struct PlumeFuncRecommendResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string keyword,
  4: list<PlumeWidgetItem> widgets,
  5: map<string, string> extraParam,
}

/** Asks for the terms that many look for. */
struct PlumeHotSearchArg {
  1: string appType,                         // as RecentFileItem.appType; empty for all
  2: string professionId,                    // terms of this profession first; may be empty
  3: i32 count,
  4: map<string, string> extraParam,
}

/** The terms by rank. */
struct PlumeHotSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<PlumeHotSearchItem> items,
  4: i64 mtime,                              // when the ranks were counted
  5: map<string, string> extraParam,
}

/** Looks for templates and other material. */
struct PlumeSearchArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string keyword,
  3: list<string> kinds,                     // as PlumeSearchItem.kind; empty for all
  4: string appType,                         // as RecentFileItem.appType; empty for all
  5: string professionId,                    // material of this profession first; may be empty
  6: bool freeOnly,                          // leave out what needs a membership
  7: i32 orderBy,                            // 0 nearest first, 1 newest first, 2 most downloaded first
  8: i32 offset,
  9: i32 count,
  10: map<string, string> extraParam,
}

/** Templates and other material found. */
struct PlumeSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the request
  4: string keyword,
  5: list<PlumeSearchItem> items,
  6: i64 total,
  7: bool hasMore,
  8: list<string> relatedKeywords,
  9: map<string, string> extraParam,
}

/** The user's word on the categories that the service gave to files. */
struct FeedBackAiCategoryArg {
  1: string userId,
  2: list<common.CloudItemId> items,
  3: string categoryId,                      // the one given
  4: i32 verdict,                            // 1 right, 2 wrong
  5: string rightCategoryId,                 // with verdict 2; may be empty
  6: string comment,
  7: map<string, string> extraParam,
}

/** Says that the user's word was taken. */
struct FeedBackAiCategoryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string feedbackId,
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: map<string, string> extraParam,
}

/** Asks for the smart categories, or for those of some files. */
struct FetchAICategoryArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // empty: all categories of the user
  3: string parentCategoryId,                // only those below it; empty for all
  4: bool refresh,                           // have the service sort anew, not from its store
  5: i32 offset,                             // of the categories
  6: i32 count,
  7: map<string, string> extraParam,
}

/** The categories. */
struct FetchAICategoryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<FileCategoryDetails> categories,
  4: map<string, list<string>> itemCategoryIds, // item id -> category ids, for the asked items
  5: map<string, common.ServerErrorInfo> failedItems, // by item id
  6: i64 total,                              // categories
  7: bool sorting,                           // the service still sorts; ask again later
  8: map<string, string> extraParam,
}

/** Asks whether the content search is on. */
struct GetContentSearchStatusArg {
  1: string userId,
  2: string companyId,                       // empty for the private account
  3: map<string, string> extraParam,
}

/** Whether the content search is on. */
struct GetContentSearchStatusResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i32 status,                             // 0 off, 1 on, 2 on while the index is built, 3 refused for this account
  4: i32 indexProgress,                      // 0 to 100
  5: i64 indexedCount,                       // documents
  6: list<ChangeContentSearchStatusUserInfoItem> userInfos, // all accounts of the user
  7: map<string, string> extraParam,
}

/** Puts files into categories and takes them out. */
struct ModifyFileCategoryArg {
  1: string userId,
  2: list<common.CloudItemId> items,
  3: list<string> addedCategoryIds,
  4: list<string> removedCategoryIds,
  5: string newCategoryName,                 // a category to make and to put them into; may be empty
  6: map<string, string> extraParam,
}

/** The files and categories after the change. */
struct ModifyFileCategoryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<common.CloudItem> items,           // changed ones
  4: map<string, common.ServerErrorInfo> failedItems, // by item id
  5: list<FileCategoryDetails> categories,   // those whose counts changed
  6: map<string, string> extraParam,
}

/** Tells the service which filters the user set by hand after a smart search. */
struct NotifyAISearchFiltersArg {
  1: string uuid,                            // of the search
  2: string query,                           // the sentence as typed
  3: AISearchFilters filters,
  4: map<string, string> extraParam,
}

/** The filters as the service understands them now. */
struct NotifyAISearchFiltersResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the search
  4: AISearchFilters filters,
  5: i64 total,                              // documents that pass them
  6: map<string, string> extraParam,
}

/** One term in several sources at once: the first page of each. */
struct RequestSearchArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string userId,
  3: string keyword,
  4: list<string> sources,                   // "cloud", "fulltext", "plume"; empty for all
  5: i32 count,                              // of each source; later pages by the methods of the sources
  6: map<string, string> extraParam,
}

/** First pages by source; a source that failed does not spoil the others. */
struct RequestSearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the request
  4: string keyword,
  5: list<CloudDocSearchFileInfoItem> files,
  6: list<CloudDocSearchGroupInfoItem> groups,
  7: list<CloudDocContentSearchFileInfoItem> contentFiles,
  8: list<PlumeSearchItem> plumeItems,
  9: map<string, i64> totals,                // by source
  10: map<string, common.ServerErrorInfo> failedSources, // by source
  11: map<string, string> extraParam,
}

/** Looks for items by name inside one folder and below. */
struct SearchArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string groupId,
  3: string parentId,                        // empty for the whole space
  4: string keyword,
  5: list<string> types,                     // as CloudItem.type; empty for all
  6: bool recursive,
  7: i32 orderBy,                            // as CloudDocContentSearchArg.orderBy
  8: i32 offset,
  9: i32 count,
  10: map<string, string> extraParam,
}

/** The items found. */
struct SearchResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the request
  4: string keyword,
  5: list<common.CloudItem> items,
  6: list<common.BatchParentItemsInfo> parents, // folders of the items
  7: i64 total,
  8: bool hasMore,
  9: map<string, string> extraParam,
}

/** Looks for files of smart categories. */
struct SearchUsingAICategoryArg {
  1: string uuid,                            // chosen by the caller; the answer carries it
  2: string userId,
  3: list<string> categoryIds,               // a file must be in all of them
  4: string keyword,                         // in the name; may be empty
  5: AISearchFilters filters,
  6: i32 orderBy,                            // as CloudDocContentSearchArg.orderBy
  7: i32 offset,
  8: i32 count,
  9: map<string, string> extraParam,
}

/** Files of the categories. */
struct SearchUsingAICategoryResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string uuid,                            // of the request
  4: list<common.CloudItem> items,
  5: list<FileCategoryDetails> categories,   // asked ones, counts as filtered
  6: i64 total,
  7: bool hasMore,
  8: map<string, string> extraParam,
}

/** Tells the service whether the bar of smart filters is shown, and with what. */
struct AISearchFilterStatusArg {
  1: string uuid,                            // of the search
  2: bool enabled,
  3: bool expanded,
  4: AISearchFilters filters,
  5: map<string, string> extraParam,
}

/** Asks for terms that complete or widen what is typed. */
struct PlumeSearchRecommendArg {
  1: string keyword,                         // as typed so far; empty: by the user's habits
  2: string appType,                         // as RecentFileItem.appType; empty for all
  3: string scene,                           // where it is shown: "searchpanel", "startpage"
  4: i32 count,
  5: map<string, string> extraParam,
}

/** Looks for functions and small tools by name. */
struct PlumeSearchWidgetArg {
  1: string uuid,                            // chosen by the caller
  2: string keyword,
  3: string category,                        // empty for all
  4: string appType,                         // as RecentFileItem.appType; empty for all
  5: i32 offset,
  6: i32 count,
  7: map<string, string> extraParam,
}

/** Asks which professions fit a term, for the choice in the user's profile. */
struct UserProfessionSearchArg {
  1: string userId,
  2: string keyword,                         // empty for the most chosen ones
  3: string industryId,                      // empty for all
  4: i32 count,
  5: map<string, string> extraParam,
}

/** All functions and small tools that the user may start. */
struct PlumeWidgetResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<PlumeWidgetItem> widgets,          // by sortOrder
  4: i64 revision,                           // of the list
  5: map<string, string> extraParam,
}

/** The profession that the user chose. */
struct UserProfessionResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string professionId,                    // empty when none was chosen
  4: string professionName,
  5: string industryId,
  6: string industryName,
  7: i64 mtime,
  8: map<string, string> extraParam,
}
