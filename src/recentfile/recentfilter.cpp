#include "recentfile/recentfilter.h"

#include "base/searchfold.h"
#include "krecentfile.h"
#include "recentfile/recordtexts.h"

#include <QDir>
#include <algorithm>

namespace zel::recent {

namespace {

// Everybody's documents lie in the home folder: its name says nothing about one of them.
QString placeOf(const RecentFileInfo &record)
{
    static const QString home = QDir::homePath() + QLatin1Char('/');
    if (record.path.isEmpty())
        return record.deviceName;
    return record.path.startsWith(home) ? record.path.mid(home.size()) : record.path;
}

} // namespace

RecentTextMatcher::RecentTextMatcher(const QString &text) : m_words(searchWords(text)) { }

bool RecentTextMatcher::matches(const RecentFileInfo &record) const
{
    if (m_words.isEmpty())
        return true;
    m_searched.resize(0); // keeps its memory
    appendFolded(m_searched, placeOf(record));
    if (record.path.isEmpty() || record.roaming) {
        m_searched += QLatin1Char('\n'); // no word spans the two
        appendFolded(m_searched, shownName(record));
    }
    return std::all_of(
        m_words.cbegin(), m_words.cend(), [this](const QString &word) { return m_searched.contains(word); });
}

bool RecentTextMatcher::isNarrowerThan(const RecentTextMatcher &wider) const
{
    return std::all_of(wider.m_words.cbegin(), wider.m_words.cend(), [this](const QString &word) {
        return std::any_of(m_words.cbegin(), m_words.cend(),
            [&word](const QString &longer) { return longer.contains(word); });
    });
}

bool passes(const RecentFilter &filter, const RecentFileInfo &record)
{
    return (!filter.kinds || filter.kinds.testFlag(documentKind(shownName(record))))
        && RecentTextMatcher(filter.text).matches(record);
}

} // namespace zel::recent
