#pragma once

#include "base/clock.h"
#include "support/text.h"

#include <cstdlib>
#include <ctime>

/// The time that a test lives in.
namespace zeltest {

/// The zone of the whole process from now on, as in "America/New_York".
inline void setZone(const char *zone)
{
    setenv("TZ", zone, 1);
    tzset();
}

/// "2024-03-10 12:00" (or with seconds) in local time.
inline QDateTime at(const Text &local)
{
    const QDateTime time = QDateTime::fromString(local, QStringLiteral("yyyy-MM-dd hh:mm"));
    return time.isValid() ? time : QDateTime::fromString(local, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

/// Fixes zel::now() for the life of the object.
class FixedNow
{
public:
    explicit FixedNow(const QDateTime &now) { zel::setFixedNow(now); }
    ~FixedNow() { zel::setFixedNow({}); }
    FixedNow(const FixedNow &) = delete;
    FixedNow &operator=(const FixedNow &) = delete;
};

} // namespace zeltest
