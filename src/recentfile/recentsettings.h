#pragma once

#include "recentfile/recentfilter.h"

/// Settings of the Recent page. GUI thread.
namespace zel::recent {

/// Read once per process: kinds of records that the page shows, bits of RecentRecordKind. A setting can only
/// narrow the default of 106.
int kindMask();
/// Read once per process: period of the roaming refresh in ms; text that is no number gives 0. Negative: no
/// refresh.
int roamingRefreshInterval();
/// How long the first load may take before the page says so, in ms.
int loadingTimeout();

/// Whether the user wants to be told of what other devices did. True at first.
bool remindersOn();
void setRemindersOn(bool on);

/// The order that the list was in last; by time at first.
RecentSort storedSort();
void storeSort(const RecentSort &sort);

/// Forgets what was read, so that a test can change the settings.
void resetSettingsCache();

} // namespace zel::recent
