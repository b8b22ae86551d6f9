#pragma once

#include <QString>

struct RecentFileInfo;

/// Texts of a record that need neither a model nor a place in a list. Those with words of ours are
/// translated: GUI thread.
namespace zel::recent {

/// The name that the list shows: of the file, or for an item without one its name in the cloud.
QString shownName(const RecentFileInfo &record);
/// Where it is: the path in the desktop's spelling, or for an item of another device its name and that.
QString toolTip(const RecentFileInfo &record);
/// The row as a screen reader says it: name, time, then what else there is to know.
QString accessibleText(const RecentFileInfo &record);

} // namespace zel::recent
