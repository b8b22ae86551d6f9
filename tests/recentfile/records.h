#pragma once

#include "krecentfile.h"
#include "support/testclock.h"

#include <QDir>
#include <vector>

/// Records for the tests of the Recent page.
namespace recenttest {

using zeltest::at;
using zeltest::FixedNow;
using zeltest::setZone;

inline RecentFileInfo record(const QString &id, qint64 time = 0, int kind = RecentRecordKind::Desktop)
{
    RecentFileInfo info;
    info.id = id;
    info.kind = kind;
    info.path = "/data/docs/"_s + id + ".odt"_s;
    info.displayText = id;
    info.lastAccess = time;
    return info;
}

inline RecentFileInfo record(const QString &id, const QDateTime &time, int kind = RecentRecordKind::Desktop)
{
    return record(id, time.toMSecsSinceEpoch(), kind);
}

/// Records of documents in the user's home, `count` by going round; `age` tells seconds by number.
template <class Age>
RecordInfoList recordsAtHome(const std::vector<const char *> &paths, int count, const Age &age)
{
    RecordInfoList list;
    for (qint64 i = 0; i < count; ++i) {
        list << record(QString::number(i), zel::now().addSecs(-age(i) - 180));
        list.last().path = QDir::home().filePath(QString::fromUtf8(paths[i % paths.size()]));
    }
    return list;
}

} // namespace recenttest
