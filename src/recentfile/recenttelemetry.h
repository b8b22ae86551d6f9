#pragma once

#include "krecentfile.h"

#include <QLatin1String>

/// Telemetry of the Recent page: every event name once, and the parameters of each. GUI thread; costs nothing
/// while data collection is off.
namespace zel::recent::telemetry {

enum class TimeoutTarget { Redo, Feedback };

struct PageState
{
    bool loggedIn = false;
    bool roamingOn = false;
    int unread = 0;
    int rows = 0;
};

void pageShown(const PageState &state);
void emptyPageShown();
void listShown();
/// The size is looked up on a worker thread, so the event may come a little later.
void clicked(int row, const RecentFileInfo &record);
void doubleClicked(int row, const RecentFileInfo &record);
void timeoutShown();
void timeoutClicked(TimeoutTarget target);

} // namespace zel::recent::telemetry
