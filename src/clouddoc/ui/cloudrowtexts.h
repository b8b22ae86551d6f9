#pragma once

#include "lists/ui/listrow.h"

#include <QDateTime>

class QModelIndex;

/// What one row of the cloud list says: the name, time and size as columns, and the transfer that goes on.
struct CloudRow : ListRow
{
    static CloudRow of(const QModelIndex &index); ///< GUI thread
};

namespace zel::clouddoc {

/// "14:30" for today, "yesterday 14:30", day and month within this year, else with the year. Empty for an
/// invalid time. GUI thread (translated, locale).
QString timeText(const QDateTime &time, const QDateTime &now);

/// "less than a minute left", "3 minutes left", "2 hours left"; empty when that is not known (0 or less).
QString remainingText(qint64 seconds);

} // namespace zel::clouddoc
