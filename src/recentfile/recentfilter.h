#pragma once

#include "recentfile/documentkind.h"

#include <QString>
#include <QStringList>

struct RecentFileInfo;

/// In which order the list stands. Pinned rows come first in any.
struct RecentSort
{
    enum class Key { Time, Name, Size, Type };
    Key key = Key::Time;
    Qt::SortOrder order = Qt::DescendingOrder; ///< of Time: newest first; of Name: usually ascending

    bool operator==(const RecentSort &) const = default;
};

/// Which rows are shown. The empty filter shows all.
struct RecentFilter
{
    /// Words that the name or the folder must all contain, in any order; case, accents and the width of
    /// letters do not matter. The user's home is not part of a folder; a device stands for a missing one.
    QString text;
    zel::recent::DocumentKinds kinds; ///< empty: all

    bool isEmpty() const { return text.trimmed().isEmpty() && !kinds; }
    bool operator==(const RecentFilter &) const = default;
};

namespace zel::recent {

/// Whether a record passes. O(length of its texts). Any thread.
bool passes(const RecentFilter &filter, const RecentFileInfo &record);

/// The text of a filter made ready for many records. One thread at a time.
class RecentTextMatcher
{
public:
    explicit RecentTextMatcher(const QString &text = {});

    bool isEmpty() const { return m_words.isEmpty(); }
    bool matches(const RecentFileInfo &record) const;
    /// True when whatever passes this passes `wider` too, for sure.
    bool isNarrowerThan(const RecentTextMatcher &wider) const;

private:
    QStringList m_words; // folded
    mutable QString m_searched;
};

} // namespace zel::recent
