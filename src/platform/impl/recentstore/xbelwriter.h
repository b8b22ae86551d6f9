#pragma once

#include "recenttypes.h"

#include <functional>

namespace zel::recent {

inline constexpr char ApplicationName[] = "ZEL Box"; ///< under which the box registers what it opens

/// What the box tells the desktop's recently-used list.
struct XbelEdit
{
    struct Visit
    {
        QString path;
        QString mimeType;
        qint64 time = 0; ///< ms since epoch
    };
    QVector<Visit> visits;
    QStringList removals; ///< paths
    bool isEmpty() const { return visits.isEmpty() && removals.isEmpty(); }
};

enum class XbelEditResult {
    Written,
    Unchanged, ///< nothing to do
    Damaged,   ///< what stands there is not such a list and was left alone
    Failed,    ///< cannot be read or written
};

/// Edits the list; all other bookmarks stay. The new file (mode 0600) takes the old one's place at once; when
/// that was changed meanwhile by another program the edit is made anew on its version. A missing or empty
/// list is made. `beforeReplace` is called each time right before the file is compared and replaced.
XbelEditResult editXbel(
    const QString &file, const XbelEdit &edit, const std::function<void()> &beforeReplace = {});

} // namespace zel::recent
