#include "lists/ui/textmarks.h"

#include "kskin.h"
#include "widgets/rowpaint.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace zel {
namespace {

constexpr qreal MarkTint = 0.25; // of the accent

int commonStart(const QString &a, const QString &b)
{
    return int(std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend()).first - a.cbegin());
}

// Behind the first `start` characters, which are common already.
int commonEnd(const QString &a, const QString &b, int start)
{
    const int most = std::min(a.size(), b.size()) - start;
    int length = 0;
    while (length < most && a.at(a.size() - 1 - length) == b.at(b.size() - 1 - length))
        ++length;
    return length;
}

QTextCharFormat markFormat()
{
    QTextCharFormat format;
    QColor veil = KSkin::color(KSkin::Color::Accent);
    veil.setAlphaF(MarkTint);
    format.setBackground(veil);
    format.setForeground(KSkin::color(KSkin::Color::Text));
    if (KSkin::highContrast()) { // the shade of the ground alone would be a weak sign
        format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
        format.setUnderlineColor(KSkin::color(KSkin::Color::Accent));
    }
    return format;
}

} // namespace

TextRanges shownRanges(const QString &text, const QString &shown, const TextRanges &marks)
{
    const int start = commonStart(shown, text);
    const int end = commonEnd(shown, text, start);
    const int hiddenEnd = text.size() - end;
    const int back = shown.size() - text.size(); // from a place behind the ellipsis to where it is shown
    TextRanges ranges;
    for (const TextRange &mark : marks) {
        const int last = mark.start + mark.length;
        const int from = mark.start <= start ? mark.start
            : mark.start < hiddenEnd         ? start
                                             : mark.start + back;
        const int to = last <= start ? last : last <= hiddenEnd ? shown.size() - end : last + back;
        if (!ranges.isEmpty() && from <= ranges.last().start + ranges.last().length)
            ranges.last().length =
                std::max(to, ranges.last().start + ranges.last().length) - ranges.last().start;
        else if (to > from)
            ranges << TextRange{from, to - from};
    }
    return ranges;
}

MarkedText MarkedText::fitted(const QFontMetrics &metrics, int width) const
{
    if (metrics.horizontalAdvance(text) <= width)
        return *this;
    const QString ellipsis(QChar(0x2026));
    int cut = 0; // a few words before the mark stay, so that it can be read in its place
    if (!marks.isEmpty()) {
        const TextRange &mark = marks.constFirst();
        if (metrics.horizontalAdvance(text.left(mark.start + mark.length) + ellipsis) > width) {
            for (cut = mark.start; cut > 0;) {
                const int word = cut < 2 ? 0 : text.lastIndexOf(QLatin1Char(' '), cut - 2) + 1;
                if (metrics.horizontalAdvance(text.mid(word, mark.start - word)) > width / 3)
                    break;
                cut = word;
            }
        }
    }
    const QString rest = cut > 0 ? ellipsis + text.mid(cut) : text;
    MarkedText shown{metrics.elidedText(rest, Qt::ElideRight, width), {}};
    TextRanges kept;
    for (const TextRange &mark : marks) {
        if (mark.start >= cut)
            kept << TextRange{mark.start - cut + (cut > 0 ? ellipsis.size() : 0), mark.length};
    }
    shown.marks = shownRanges(rest, shown.text, kept);
    return shown;
}

// As one text with formats rather than piece by piece: what is joined or turned stays so.
void paintMarkedLine(
    QPainter *painter, const QRect &rect, const QFontMetrics &metrics, const MarkedText &line)
{
    if (line.marks.isEmpty())
        return paintTextLine(painter, rect, metrics, line.text);
    const QTextCharFormat format = markFormat();
    QVector<QTextLayout::FormatRange> formats;
    for (const TextRange &mark : line.marks)
        formats << QTextLayout::FormatRange{mark.start, mark.length, format};
    QTextLayout layout(line.text, painter->font(), painter->device());
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.setFormats(formats);
    layout.beginLayout();
    const QTextLine only = layout.createLine();
    layout.endLayout();
    if (!only.isValid())
        return;
    const int top = rect.top() + (rect.height() - metrics.height()) / 2;
    layout.draw(painter, QPointF(rect.left(), top + metrics.ascent() - only.ascent()));
}

} // namespace zel
