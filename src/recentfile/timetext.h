#pragma once

#include <QDateTime>
#include <QString>

namespace zel::recent {

/// Short text of a time for a list, in local time as seen at `now`: "hh:mm" for today, "yesterday hh:mm",
/// month and day within this year (also for days to come), else "yyyy-MM-dd". Empty for an invalid time. GUI
/// thread (translated).
QString timeText(const QDateTime &time, const QDateTime &now);

} // namespace zel::recent
