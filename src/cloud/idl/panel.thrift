/** Windows and panels that the service has shown: side panels beside documents, the home page, settings, details. */
include "common.thrift"
include "document.thrift"
namespace cpp zel.vela
namespace py zelwire.panel

/** The smart panel at the right of a document window. */
struct AIRightSidePanelInfo {
  1: string panelId,
  2: string url,                             // page that the panel shows
  3: string title,
  4: i32 width,                              // device-independent pixels
  5: bool visible,
  6: bool pinned,                            // stays when the document changes
  7: string appType,                         // program of the document, as RecentFileItem.appType
  8: string fileId,                          // document it is about; empty for none
  9: string filePath,
  10: map<string, string> extraParam,
}

/** The window that a panel belongs to. */
struct PanelHostInfo {
  1: string hostId,                          // identity of the window, "mainbox" for the box
  2: i64 processId,
  3: i64 windowId,                           // of the window system; 0 where it gives none
  4: i32 x,                                  // of the window, device pixels of the virtual desktop
  5: i32 y,
  6: i32 width,
  7: i32 height,
  8: double scale,                           // device pixels to one device-independent pixel
}

/** Makes the smart panel of a window; it is hidden at first. */
struct CreateAIRightSidePanelArg {
  1: PanelHostInfo host,
  2: AIRightSidePanelInfo panel,             // panelId empty: the service chooses one
  3: string callFrom,
  4: map<string, string> extraParam,
}

/** The panel as made, or the one that the window had. */
struct CreateAIRightSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: AIRightSidePanelInfo panel,
  4: bool existed,
  5: i64 panelWindowId,                      // of the window system, for placing it in the host
  6: map<string, string> extraParam,
}

/** Opens a window that shows a page. */
struct CreateGenericWindowArg {
  1: string windowName,                      // names the window; a second one of the same name is not opened
  2: string url,
  3: string title,
  4: PanelHostInfo host,                     // hostId empty: no parent window
  5: i32 width,                              // device-independent pixels; 0 for the page's choice
  6: i32 height,
  7: bool modal,
  8: bool resizable,
  9: map<string, string> params,             // handed to the page
  10: map<string, string> extraParam,
}

/** The window opened or brought to the front. */
struct CreateGenericWindowResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string windowName,
  4: i64 windowId,                           // of the window system
  5: bool existed,
  6: map<string, string> extraParam,
}

/** Makes the home page inside a window; it is hidden at first. */
struct CreateHomepageArg {
  1: PanelHostInfo host,
  2: string userId,
  3: string pageKey,                         // page to begin with: "RecentFile", "TeamFile", "DocMsg" …
  4: string callFrom,
  5: map<string, string> extraParam,
}

/** The home page as made, or the one that the window had. */
struct CreateHomepageResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string homepageId,
  4: i64 homepageWindowId,                   // of the window system, for placing it in the host
  5: bool existed,
  6: map<string, string> extraParam,
}

/** Makes a side panel of a window; it is hidden at first. */
struct CreateSidePanelArg {
  1: PanelHostInfo host,
  2: string panelType,                       // "cloud", "comment", "history", "share"
  3: string panelId,                         // empty: the service chooses one
  4: common.CloudItemId item,                // document it is about
  5: string filePath,                        // of that document, when it is open locally
  6: i32 dock,                               // 0 right, 1 left
  7: i32 width,                              // device-independent pixels; 0 for the panel's choice
  8: map<string, string> extraParam,
}

/** The panel as made, or the one that the window had. */
struct CreateSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string panelId,
  4: i64 panelWindowId,                      // of the window system, for placing it in the host
  5: i32 width,                              // device-independent pixels
  6: bool existed,
  7: map<string, string> extraParam,
}

/** Takes the smart panel of a window away. */
struct DestroyAIRightSidePanelArg {
  1: string panelId,                         // empty: whichever the host has
  2: PanelHostInfo host,
  3: bool force,                             // even while the panel works
  4: map<string, string> extraParam,
}

/** Whether the panel went. */
struct DestroyAIRightSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "busy" while it works and force is not set
  3: string panelId,
  4: map<string, string> extraParam,
}

/** Takes the home page of a window away. */
struct DestroyHomepageArg {
  1: string homepageId,                      // empty: whichever the host has
  2: PanelHostInfo host,
  3: map<string, string> extraParam,
}

/** Whether the home page went. */
struct DestroyHomepageResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string homepageId,
  4: map<string, string> extraParam,
}

/** Takes a side panel away. */
struct DestroySidePanelArg {
  1: string panelId,                         // empty: all of the host
  2: PanelHostInfo host,
  3: map<string, string> extraParam,
}

/** Which panels went. */
struct DestroySidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> panelIds,
  4: map<string, string> extraParam,
}

/** Has the settings shown by the client that owns them. */
struct NotifyShowSettingsArg {
  1: string page,                            // page of the settings; empty for the first
  2: string targetWindow,                    // identity of the window, "mainbox" for the box; empty: any
  3: string callFrom,
  4: map<string, string> extraParam,
}

/** Which window took the wish. */
struct NotifyShowSettingsResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notServed" when no client shows settings
  3: string targetWindow,
  4: map<string, string> extraParam,
}

/** Has the transfers shown by the client that owns their window. */
struct NotifyShowtTransDeatilArg {
  1: i32 tab,                                // 0 the last one shown, 1 uploads, 2 downloads, 3 desktop sync, 4 backup
  2: string taskId,                          // to select; empty for none
  3: string targetWindow,                    // identity of the window, "mainbox" for the box; empty: any
  4: string callFrom,                        // "radar", "mainbox", "tray", "bubble"
  5: map<string, string> extraParam,
}

/** Which window took the wish. */
struct NotifyShowtTransDeatilResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notServed" when no client shows transfers
  3: string targetWindow,
  4: map<string, string> extraParam,
}

/** Opens a file with a program that the user chose. */
struct OpenFileWithArg {
  1: string userId,
  2: common.CloudItemId item,                // fetched first when there is no local copy
  3: string localPath,                       // instead of the item
  4: string program,                         // desktop entry id or path; empty: ask the user
  5: bool readOnly,
  6: bool remember,                          // take the program for this type from now on
  7: string callFrom,
  8: map<string, string> extraParam,
}

/** What was opened with what. */
struct OpenFileWithResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "cancelled" when the user chose none
  3: string localPath,
  4: string program,
  5: i64 processId,                          // 0 when a running program took the file
  6: string taskId,                          // of the download; empty when none was needed
  7: map<string, string> extraParam,
}

/** Shows pictures, one at a time. */
struct OpenPhotoArg {
  1: string userId,
  2: list<common.CloudItemId> items,         // pictures of the cloud
  3: list<string> localPaths,                // or local ones
  4: i32 index,                              // of the first one shown
  5: PanelHostInfo host,                     // hostId empty: no parent window
  6: string callFrom,
  7: map<string, string> extraParam,
}

/** The viewer and what it could not show. */
struct OpenPhotoResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 windowId,                           // of the window system
  4: map<string, common.ServerErrorInfo> failedItems, // by item id or path
  5: map<string, string> extraParam,
}

/** Has the smart panel read its document or page anew. */
struct RefreshAIRightSidePanelArg {
  1: string panelId,
  2: PanelHostInfo host,                     // place and size now
  3: AIRightSidePanelInfo panel,             // what it is about now
  4: bool reload,                            // the page too, not only what it is about
  5: map<string, string> extraParam,
}

/** The panel after that. */
struct RefreshAIRightSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: AIRightSidePanelInfo panel,
  4: map<string, string> extraParam,
}

/** Has a side panel fetch its contents anew. */
struct RefreshSidePanelArg {
  1: string panelId,                         // empty: all of the host
  2: PanelHostInfo host,
  3: common.CloudItemId item,                // document it is about
  4: map<string, string> extraParam,
}

/** Which panels fetch anew. */
struct RefreshSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: list<string> panelIds,
  4: map<string, common.ServerErrorInfo> failedItems, // by panel id
  5: map<string, string> extraParam,
}

/** Shows or hides the smart panel. */
struct ShowAIRightSidePanelArg {
  1: string panelId,
  2: PanelHostInfo host,
  3: bool visible,
  4: bool takeFocus,
  5: string callFrom,
  6: map<string, string> extraParam,
}

/** The panel as shown. */
struct ShowAIRightSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: AIRightSidePanelInfo panel,
  4: map<string, string> extraParam,
}

/** Shows the settings of the desktop sync. */
struct ShowDesktopSyncSettingArg {
  1: string userId,
  2: PanelHostInfo host,                     // hostId empty: no parent window
  3: string callFrom,                        // "radar", "mainbox"
  4: map<string, string> extraParam,
}

/** The window with the settings. */
struct ShowDesktopSyncSettingResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 windowId,                           // of the window system
  4: bool existed,                           // brought to the front only
  5: map<string, string> extraParam,
}

/** Shows the earlier versions of a document. */
struct ShowHistoryVersionArg {
  1: string userId,
  2: common.CloudItemId item,
  3: string localPath,                       // of the copy, when the id is not at hand
  4: i64 cloudVersion,                       // to select; 0 for the newest
  5: PanelHostInfo host,                     // hostId empty: no parent window
  6: string callFrom,
  7: map<string, string> extraParam,
}

/** The window and the versions that it begins with. */
struct ShowHistoryVersionResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notFound" when the document has no history
  3: i64 windowId,                           // of the window system
  4: list<document.HistoryItem> histories,   // newest first
  5: i64 total,
  6: map<string, string> extraParam,
}

/** Shows or hides the home page of a window. */
struct ShowHomepageArg {
  1: string homepageId,                      // empty: whichever the host has
  2: PanelHostInfo host,
  3: bool visible,
  4: string pageKey,                         // page to change to; empty: as it was left
  5: map<string, string> params,             // of the page: the item to select and the like
  6: map<string, string> extraParam,
}

/** The home page as shown. */
struct ShowHomepageResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string homepageId,
  4: bool visible,
  5: string pageKey,
  6: map<string, string> extraParam,
}

/** Shows the official templates for a new document. */
struct ShowOfficialTemplateWindowArg {
  1: string userId,
  2: string companyId,                       // templates of this company; empty for those for everyone
  3: string appType,                         // as RecentFileItem.appType; empty for all
  4: common.CloudItemId folder,              // where the document is to be created
  5: PanelHostInfo host,                     // hostId empty: no parent window
  6: string callFrom,
  7: map<string, string> extraParam,
}

/** The window with the templates; what was chosen follows as a push. */
struct ShowOfficialTemplateWindowResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string windowName,                      // windowId of NotifyCloseOfficialTemplateWindowArg
  4: i64 windowId,                           // of the window system
  5: bool existed,                           // brought to the front only
  6: map<string, string> extraParam,
}

/** Shows the service's own settings. */
struct ShowSettingArg {
  1: string userId,
  2: string page,                            // page of the settings; empty for the first
  3: string item,                            // setting to point at; may be empty
  4: PanelHostInfo host,                     // hostId empty: no parent window
  5: string callFrom,
  6: map<string, string> extraParam,
}

/** The window with the settings. */
struct ShowSettingResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: i64 windowId,                           // of the window system
  4: string page,                            // the page shown
  5: bool existed,                           // brought to the front only
  6: map<string, string> extraParam,
}

/** Shows or hides a side panel. */
struct ShowSidePanelArg {
  1: string panelId,
  2: PanelHostInfo host,
  3: bool visible,
  4: bool takeFocus,
  5: map<string, string> extraParam,
}

/** The panel as shown. */
struct ShowSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string panelId,
  4: bool visible,
  5: i32 width,                              // device-independent pixels; 0 when hidden
  6: map<string, string> extraParam,
}

/** Shows the service's window of transfers. */
struct ShowTransDeatilArg {
  1: string userId,
  2: i32 tab,                                // as NotifyShowtTransDeatilArg.tab
  3: string taskId,                          // to select; empty for none
  4: PanelHostInfo host,                     // hostId empty: no parent window
  5: string callFrom,
  6: map<string, string> extraParam,
}

/** The window of transfers. */
struct ShowTransDeatilResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,       // "notFound" when the task is gone; the window is shown all the same
  3: i64 windowId,                           // of the window system
  4: i32 runningCount,                       // transfers under way
  5: bool existed,                           // brought to the front only
  6: map<string, string> extraParam,
}

/** Tells a side panel that its document, place or size changed. */
struct UpdateSidePanelArg {
  1: string panelId,
  2: PanelHostInfo host,                     // place and size now
  3: common.CloudItemId item,                // document it is about now
  4: string filePath,                        // of that document, when it is open locally
  5: i32 dock,                               // as CreateSidePanelArg.dock
  6: i32 width,                              // device-independent pixels
  7: map<string, string> params,             // for the panel's page
  8: map<string, string> extraParam,
}

/** The panel after the change. */
struct UpdateSidePanelResult {
  1: i32 state,
  2: common.ServerErrorInfo errorInfo,
  3: string panelId,
  4: i32 width,                              // device-independent pixels
  5: map<string, string> extraParam,
}
