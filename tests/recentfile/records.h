#pragma once

#include "base/clock.h"
#include "krecentfile.h"

#include <cstdlib>
#include <ctime>

/// Records and times for the tests of the Recent page.
namespace recenttest {

inline void setZone(const char *zone)
{
    setenv("TZ", zone, 1);
    tzset();
}

/// "2024-03-10 12:00" (or with seconds) in local time.
inline QDateTime at(const QString &local)
{
    const QDateTime time = QDateTime::fromString(local, QStringLiteral("yyyy-MM-dd hh:mm"));
    return time.isValid() ? time : QDateTime::fromString(local, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

inline RecentFileInfo record(const QString &id, qint64 time = 0, int kind = RecentRecordKind::Desktop)
{
    RecentFileInfo info;
    info.id = id;
    info.kind = kind;
    info.path = QStringLiteral("/data/docs/") + id + QStringLiteral(".odt");
    info.displayText = id;
    info.lastAccess = time;
    return info;
}

inline RecentFileInfo record(const QString &id, const QDateTime &time, int kind = RecentRecordKind::Desktop)
{
    return record(id, time.toMSecsSinceEpoch(), kind);
}

/// Fixes the clock for the life of the object.
class FixedNow
{
public:
    explicit FixedNow(const QDateTime &now) { zel::setFixedNow(now); }
    ~FixedNow() { zel::setFixedNow({}); }
    FixedNow(const FixedNow &) = delete;
    FixedNow &operator=(const FixedNow &) = delete;
};

} // namespace recenttest
