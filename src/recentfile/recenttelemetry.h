#pragma once

#include "krecentfile.h"

#include <QLatin1String>

/// Telemetry of the Recent page: every event name once, and the parameters of each. GUI thread; costs nothing
/// while data collection is off.
namespace zel::recent::telemetry {

/// What is told by its name alone.
enum class Event {
    CarryPopupShow,
    CarryPopupKnowClick,
    CarryPopupCloseClick,
    CarryPopupClientJumpClick,
    CarryPopupWebJumpClick,
    ClearClick,
    DeletePageShow,
    DeletePageConfirmClick,
    DeleteFilePageShow,
    DeleteFilePageConfirmClick,
    EmptyPageShow,
    EmptyPageLoginClick,
    EmptyPageEnableCarryClick,
    EmptyPageClientJumpClick,
    EmptyPageWebJumpClick,
    EnableCarryClick,
    ListShow,
    ListMoreClick,
    ListRightClick,
    ListShareClick,
    MoreListShow,
    MultiDeviceClick,
    NoticeClick,
    RightListShow,
    RightListOpenClick,
    RightListAppClick,
    RightListOpenPathClick,
    RightListShareClick,
    RightListDeleteClick,
    RightListDeleteFileClick,
    RightListTipOffFileClick,
    TimeoutShow,
};
void post(Event event);

enum class TimeoutTarget { Redo, Feedback };

struct PageState
{
    bool loggedIn = false;
    bool roamingOn = false;
    int unread = 0;
    int rows = 0;
};

void pageShown(const PageState &state);
/// The size is looked up on a worker thread, so the event may come a little later.
void clicked(int row, const RecentFileInfo &record);
void doubleClicked(int row, const RecentFileInfo &record);
void timeoutClicked(TimeoutTarget target);
void remindersSwitchedOff();

} // namespace zel::recent::telemetry
