#include "recentfile/recentfilter.h"

#include "krecentfile.h"
#include "recentfile/recordtexts.h"

#include <QDir>

namespace zel::recent {

// Everybody's documents lie in the home folder: its name says nothing about one of them.
static QString placeOf(const RecentFileInfo &record)
{
    static const QString home = QDir::homePath() + QLatin1Char('/');
    if (record.path.isEmpty())
        return record.deviceName;
    return record.path.startsWith(home) ? record.path.mid(home.size()) : record.path;
}

bool matches(const WordFilter &words, const RecentFileInfo &record)
{
    if (words.isEmpty())
        return true;
    if (record.path.isEmpty() || record.roaming)
        return words.matches({placeOf(record), shownName(record)});
    return words.matches(placeOf(record));
}

} // namespace zel::recent
