#pragma once

#include <QStringList>
#include <QVector>

namespace zel::recent {

inline constexpr char ApplicationName[] = "ZEL Box"; ///< under which the box registers what it opens

/// What the box tells the desktop's recently-used list.
struct XbelEdit
{
    struct Visit
    {
        QString path; ///< absolute; others are passed over
        QString mimeType;
        qint64 time = 0; ///< ms since epoch
    };
    QVector<Visit> visits; ///< of a path the last one counts
    QStringList removals;  ///< paths; stronger than visits
    bool isEmpty() const { return visits.isEmpty() && removals.isEmpty(); }
};

enum class XbelEditResult {
    Written,
    Unchanged,   ///< nothing to do
    Damaged,     ///< what stands there is not such a list and was left alone
    Unsupported, ///< a list in another encoding or with entities of its own, left alone
    Failed,      ///< cannot be read or written
};

/// Edits a list's text: Written and `data` replaced, or Unchanged, Damaged or Unsupported and `data` as it
/// was. Every byte outside of what the box has to say stays: other bookmarks, and of a bookmark that it adds
/// itself to the others' registrations, groups, title and private mark. Empty data becomes a new list. Any
/// thread.
XbelEditResult editXbelText(QByteArray &data, const XbelEdit &edit);

} // namespace zel::recent
