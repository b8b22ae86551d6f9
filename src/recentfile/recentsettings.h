#pragma once

/// Settings of the Recent page, each read once per process. GUI thread.
namespace zel::recent {

/// Kinds of records that the page shows, bits of RecentRecordKind. A setting can only narrow the default of
/// 106.
int kindMask();
/// Period of the roaming refresh in ms; text that is no number gives 0. Negative: no refresh.
int roamingRefreshInterval();
/// How long the first load may take before the page says so, in ms.
int loadingTimeout();

/// Forgets what was read, so that a test can change the settings.
void resetSettingsCache();

} // namespace zel::recent
