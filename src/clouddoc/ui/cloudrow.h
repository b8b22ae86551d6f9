#pragma once

#include "clouddoc/ui/cloudcell.h"

#include <QDateTime>
#include <QFont>

class QModelIndex;

/// The fonts of a row with their measures.
struct CloudRowFonts
{
    explicit CloudRowFonts(const QFont &font);

    QFont name;
    QFont small; ///< of everything else
    QFontMetrics nameMetrics;
    QFontMetrics smallMetrics;
    CloudCellMetrics cell;
};

/// What one row says, ready to be shown: no text can break the line or turn its direction. Plain value.
struct CloudRow
{
    QString fileName; ///< in full
    QString name;     ///< as shown
    QString time;
    QString size;
    QString detail;    ///< time and size, for a narrow row
    QString state;     ///< of a transfer
    int progress = -1; ///< percent; below 0: none runs
    bool isFolder = false;
    bool faded = false;  ///< about to be taken away by a paste, or its new name is not confirmed yet
    bool failed = false; ///< `state` says so

    static CloudRow of(const QModelIndex &index); ///< GUI thread
    /// Shortens the texts to their room and returns where everything goes.
    CloudCell fit(const QRect &rect, const CloudRowFonts &fonts);

private:
    CloudCell::Wishes wishes(const CloudRowFonts &fonts) const;
};

namespace zel::clouddoc {

/// "14:30" for today, "yesterday 14:30", day and month within this year, else with the year. Empty for an
/// invalid time. GUI thread (translated, locale).
QString timeText(const QDateTime &time, const QDateTime &now);

/// "less than a minute left", "3 minutes left", "2 hours left"; empty when that is not known (0 or less).
QString remainingText(qint64 seconds);

} // namespace zel::clouddoc
