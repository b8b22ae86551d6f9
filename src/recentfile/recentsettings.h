#pragma once

#include "base/settingskeys.h"
#include "lists/listsortmemory.h"

#include <QObject>

/// Settings of the Recent page. GUI thread.
namespace zel::recent {

/// Tells of changes that a page makes while others show what it is about. One for the process.
class SettingsEvents final : public QObject
{
    Q_OBJECT
public:
    static SettingsEvents *instance();

Q_SIGNALS:
    void kindMaskChanged();
    void remindersChanged(bool on);
};

inline constexpr int AllKinds = 106; ///< every kind that the page can show

/// Read once per process: kinds of records that the page shows, bits of RecentRecordKind. A setting can only
/// narrow AllKinds.
int kindMask();
void setKindMask(int mask); ///< stored; the page follows at once
/// Read once per process: period of the roaming refresh in ms; text that is no number gives 0. Negative: no
/// refresh.
int roamingRefreshInterval();
/// How long the first load may take before the page says so, in ms.
int loadingTimeout();

/// Whether the user wants to be told of what other devices did. True at first.
bool remindersOn();
void setRemindersOn(bool on);

/// The sources that the user wants, bits of RecentSource; all at first. To be given to SetRecentSources()
/// before the store starts.
int storedSources();
void storeSources(int sources); ///< and the store follows at once

/// Where the order is kept that the list was in last.
inline constexpr ListSortKeys SortKeys{keys::RecentSortKey, keys::RecentSortDescending};

/// Forgets what was read, so that a test can change the settings.
void resetSettingsCache();

} // namespace zel::recent
