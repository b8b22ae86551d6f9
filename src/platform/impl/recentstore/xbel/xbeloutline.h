#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

namespace zel::recent {

/// Where an element stands in a document's text, in UTF-16 units.
struct XbelElement
{
    QString name; ///< as written, with its prefix
    int begin = -1;
    int contentBegin = -1; ///< behind the start tag
    int contentEnd = -1;   ///< before the end tag
    int end = -1;
    QHash<QString, QString> prefixes; ///< that hold inside, with their namespace; the default one is ""

    bool isThere() const { return begin >= 0; }
    bool isClosedAtOnce() const { return isThere() && contentEnd == contentBegin && contentBegin == end; }
};

/// A bookmark for a local file and those of its elements that concern the box.
struct XbelBookmark
{
    QString path;
    XbelElement element;
    XbelElement title;
    XbelElement info;
    XbelElement metadata; ///< the desktop's
    XbelElement applications;
    XbelElement application; ///< the box's own registration
};

struct XbelOutline
{
    enum class Problem { None, Damaged, Unsupported } problem = Problem::None;
    XbelElement root;
    QVector<XbelBookmark> bookmarks; ///< of the paths asked for, outside of folders
};

inline constexpr char BookmarkNamespace[] = "http://www.freedesktop.org/standards/desktop-bookmarks";
inline constexpr char MimeNamespace[] = "http://www.freedesktop.org/standards/shared-mime-info";
inline constexpr char MetadataOwner[] = "http://freedesktop.org";

/// Finds where a recently-used list has what; the whole text is checked, and nothing found counts when there
/// is a problem. Unsupported are lists whose text is not what it stands for: with entities of their own, or
/// declared in another encoding than UTF-8. `application`: name of the registration to be found. Any thread.
XbelOutline outlineOf(const QString &text, const QSet<QString> &paths, const QString &application);

} // namespace zel::recent
