#pragma once

#include "lists/wordfilter.h"

#include <QRect>

class QFontMetrics;
class QPainter;

namespace zel {

/// A text with the words in it that matched. Plain value.
struct MarkedText
{
    QString text;
    TextRanges marks; ///< in order, without overlaps

    bool operator==(const MarkedText &) const = default;
    /// What of it to show in `width`: cut at its end, and at its start where the first mark would be lost.
    MarkedText fitted(const QFontMetrics &metrics, int width) const;
};

/// The marks of `text` as they lie in `shown`, which is `text` with a part left out. What an ellipsis hides
/// is marked on it.
TextRanges shownRanges(const QString &text, const QString &shown, const TextRanges &marks);

/// paintTextLine() with marks, in the painter's font: a ground in the accent's tone behind them, in high
/// contrast a line below, too. GUI thread.
void paintMarkedLine(
    QPainter *painter, const QRect &rect, const QFontMetrics &metrics, const MarkedText &line);

} // namespace zel
