#pragma once

#include "krecentfile.h"
#include "support/testclock.h"

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

} // namespace recenttest
