#include "clouddoc/ui/cloudcell.h"

#include "klitestyle.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

CloudCellMetrics CloudCellMetrics::of(const QFontMetrics &name, const QFontMetrics &small)
{
    CloudCellMetrics metrics;
    metrics.sideMargin = KLiteStyle::dpiScaled(12);
    metrics.padding = KLiteStyle::dpiScaled(12);
    metrics.iconSize = KLiteStyle::dpiScaled(32);
    metrics.spacing = KLiteStyle::dpiScaled(12);
    metrics.gap = KLiteStyle::dpiScaled(6);
    metrics.glyphSize = KLiteStyle::dpiScaled(12);
    metrics.barHeight = KLiteStyle::dpiScaled(3);
    metrics.nameHeight = name.height();
    metrics.detailHeight = small.height();
    const auto width = [&small](const QString &text) { return small.horizontalAdvance(text) + 1; };
    metrics.timeColumn =
        std::max(width(QStringLiteral("2000-00-00")), KLiteStyle::dpiScaled(112)); // "yesterday 00:00"
    metrics.sizeColumn = std::max(width(QStringLiteral("0,000.0 MB")), KLiteStyle::dpiScaled(64));
    metrics.stateColumn = KLiteStyle::dpiScaled(120);
    metrics.wideNameWidth = KLiteStyle::dpiScaled(200);
    const int texts = metrics.nameHeight + metrics.detailHeight + KLiteStyle::dpiScaled(12);
    metrics.rowHeight = std::max(KLiteStyle::dpiScaled(48), texts);
    return metrics;
}

bool CloudCell::isWide(int rowWidth, const CloudCellMetrics &m)
{
    const int beside = 2 * (m.sideMargin + m.padding) + m.iconSize + m.spacing;
    return rowWidth - beside >= m.wideNameWidth + m.timeColumn + m.sizeColumn + 2 * m.spacing;
}

CloudCell CloudCell::layout(const QRect &row, const CloudCellMetrics &m, const Wishes &wishes)
{
    CloudCell cell;
    cell.ground = row.adjusted(m.sideMargin, 1, -m.sideMargin, -1);
    const QRect inner = cell.ground.adjusted(m.padding, 0, -m.padding, 0);
    const int middle = row.top() + row.height() / 2;
    cell.icon = QRect(inner.left(), middle - m.iconSize / 2, m.iconSize, m.iconSize);

    const int left = cell.icon.right() + 1 + m.spacing;
    const bool wide = isWide(row.width(), m);
    const int right = wide ? cell.layoutColumns(m, wishes, left, inner.right() + 1) : inner.right() + 1;
    const QRect room(left, cell.ground.top(), std::max(0, right - left), cell.ground.height());
    cell.layoutTexts(m, wishes, room, !wide);
    return cell;
}

// Returns where the room for the name ends. The column of the state is kept free only where names lose
// nothing by it; else a row that has a state shortens its own name.
int CloudCell::layoutColumns(const CloudCellMetrics &m, const Wishes &wishes, int left, int right)
{
    const auto column = [&](int width) {
        const QRect rect(right - width, ground.top(), width, ground.height());
        right = rect.left() - m.spacing;
        return rect;
    };
    size = column(m.sizeColumn);
    time = column(m.timeColumn);
    const bool wanted = wishes.state > 0 || wishes.progress;
    const int width = std::min(m.stateColumn, right - left - m.wideNameWidth / 2);
    if (wanted && width > 0)
        layoutState(m, wishes, column(width));
    return right;
}

void CloudCell::layoutTexts(const CloudCellMetrics &m, const Wishes &wishes, const QRect &room, bool twoLines)
{
    const int lineGap = 2;
    const int both = m.nameHeight + (twoLines ? lineGap + m.detailHeight : 0);
    QRect line(room.left(), room.top() + (room.height() - both) / 2, room.width(), m.nameHeight);
    const int glyphWidth = wishes.glyph ? m.gap + m.glyphSize : 0;
    name = QRect(line.left(), line.top(), std::min(wishes.name, std::max(0, line.width() - glyphWidth)),
        line.height());
    if (wishes.glyph) {
        const int top = line.top() + (line.height() - m.glyphSize) / 2;
        glyph = QRect(name.right() + 1 + m.gap, top, m.glyphSize, m.glyphSize);
    }
    if (!twoLines)
        return;
    const QRect below(line.left(), line.bottom() + 1 + lineGap, line.width(), m.detailHeight);
    if (wishes.state > 0 || wishes.progress)
        layoutState(m, wishes, below); // what goes on now matters more than when and how large
    else
        detail = QRect(below.left(), below.top(), std::min(wishes.detail, below.width()), below.height());
}

// Text and bar side by side, or the one alone.
void CloudCell::layoutState(const CloudCellMetrics &m, const Wishes &wishes, const QRect &room)
{
    state = QRect(room.left(), room.top(), std::min(wishes.state, room.width()), room.height());
    if (!wishes.progress)
        return;
    const int left = wishes.state > 0 ? state.right() + 1 + m.gap : room.left();
    const int top = room.top() + (room.height() - m.barHeight) / 2;
    const int width = std::min(room.right() + 1 - left, m.stateColumn - (left - room.left()));
    if (width >= m.glyphSize)
        progress = QRect(left, top, width, m.barHeight);
}
