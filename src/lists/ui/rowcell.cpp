#include "lists/ui/rowcell.h"

#include <algorithm>
#include <numeric>

namespace {

/// A square or a bar of this size in the middle of `line`'s height.
QRect centred(int left, const QRect &line, int width, int height)
{
    return {left, line.top() + (line.height() - height) / 2, width, height};
}

} // namespace

RowCell RowCell::framed(const QRect &row, const RowMetrics &m)
{
    RowCell cell;
    cell.ground = row.adjusted(m.sideMargin, 1, -m.sideMargin, -1);
    const int middle = row.top() + row.height() / 2;
    cell.icon = QRect(cell.ground.left() + m.padding, middle - m.iconSize / 2, m.iconSize, m.iconSize);
    return cell;
}

RowCell RowCell::twoLines(const QRect &row, const RowMetrics &m, const Wishes &wishes)
{
    RowCell cell = framed(row, m);
    const QRect room = cell.textRoom(m, wishes);
    const int below = wishes.progress && wishes.barBelow ? 2 * m.lineGap + m.barHeight : 0;
    const int height = m.nameHeight + m.lineGap + m.smallHeight + below;
    const int top = row.top() + row.height() / 2 - height / 2;
    cell.layoutNameLine(m, wishes, {room.left(), top, room.width(), m.nameHeight});
    const QRect line(room.left(), top + m.nameHeight + m.lineGap, room.width(), m.smallHeight);
    if (wishes.state > 0 || wishes.progress)
        cell.layoutState(
            m, wishes, line, wishes.barBelow); // what goes on now matters more than where and when
    else
        cell.layoutPlaceLine(m, wishes, line);
    return cell;
}

RowCell RowCell::withSnippet(const QRect &row, const RowMetrics &m, const Wishes &wishes)
{
    RowCell cell = framed(row, m);
    const QRect room = cell.textRoom(m, wishes);
    const int step = m.lineGap + m.smallHeight;
    const int top = row.top() + row.height() / 2 - (m.nameHeight + 2 * step) / 2;
    cell.layoutNameLine(m, wishes, {room.left(), top, room.width(), m.nameHeight});
    cell.snippet = QRect(room.left(), top + m.nameHeight + m.lineGap, room.width(), m.smallHeight);
    cell.layoutPlaceLine(m, wishes, cell.snippet.translated(0, step));
    return cell;
}

// The column of the state is kept free only where names lose nothing by it; else a row that has a state
// shortens its own name.
RowCell RowCell::oneLine(
    const QRect &row, const RowMetrics &m, const Wishes &wishes, const RowColumns &columns)
{
    RowCell cell = framed(row, m);
    const int left = cell.textLeft(m);
    int right = cell.textRight(m);
    const auto column = [&](int width) {
        const QRect rect(right - width, cell.ground.top(), width, cell.ground.height());
        right = rect.left() - m.spacing;
        return rect;
    };
    cell.columns.resize(columns.size());
    for (int i = columns.size() - 1; i >= 0; --i)
        cell.columns[i] = column(m.widthOf(columns.at(i)));
    const int stateWidth = std::min(m.stateColumn, right - left - m.wideNameWidth / 2);
    if ((wishes.state > 0 || wishes.progress) && stateWidth > 0)
        cell.layoutState(m, wishes, column(stateWidth), false);
    cell.layoutButtons(m, wishes.buttons);
    for (QRect &rect : cell.columns) {
        if (!cell.buttons.isEmpty() && rect.right() >= cell.buttons.first().left())
            rect = QRect();
    }
    const QRect room(left, cell.ground.top(), std::max(0, right - left), cell.ground.height());
    cell.layoutNameLine(m, wishes, centred(left, room, room.width(), m.nameHeight));
    return cell;
}

bool RowCell::isWide(int rowWidth, const RowMetrics &m, const RowColumns &columns)
{
    const int beside = 2 * (m.sideMargin + m.padding) + m.iconSize + m.spacing;
    const int all = std::accumulate(columns.cbegin(), columns.cend(), 0,
        [&m](int sum, RowColumn column) { return sum + m.widthOf(column) + m.spacing; });
    return rowWidth - beside - all >= m.wideNameWidth;
}

// Time and buttons share a column that is wide enough for both, so that no text moves when the pointer comes.
QRect RowCell::textRoom(const RowMetrics &m, const Wishes &wishes)
{
    const int left = textLeft(m);
    int right = textRight(m);
    const int column = std::max(wishes.time, std::max(wishes.buttons, wishes.buttonRoom) * m.buttonSize);
    if (column > 0 && right - left - column - m.spacing >= m.leastNameWidth) {
        layoutButtons(m, wishes.buttons);
        if (buttons.isEmpty() && wishes.time > 0)
            time = QRect(right - wishes.time, ground.top(), wishes.time, ground.height());
        right -= column + m.spacing;
    }
    return {left, ground.top(), std::max(0, right - left), ground.height()};
}

// The last button's glyph, rather than its ground, ends where time texts do.
void RowCell::layoutButtons(const RowMetrics &m, int count)
{
    const int left = textRight(m) + m.padding / 2 - count * m.buttonSize;
    for (int i = 0; i < count; ++i)
        buttons.append(centred(left + i * m.buttonSize, ground, m.buttonSize, m.buttonSize));
}

void RowCell::layoutNameLine(const RowMetrics &m, const Wishes &wishes, const QRect &line)
{
    const int glyphWidth = wishes.nameGlyph ? m.gap + m.glyphSize : 0;
    const int badgeWidth = wishes.badge > 0 ? m.gap + wishes.badge + 2 * m.badgePadding : 0;
    const int least = m.leastNameWidth / 2;
    const bool showGlyph = glyphWidth > 0 && line.width() - glyphWidth >= least;
    int room = line.width() - (showGlyph ? glyphWidth : 0);
    const bool showBadge = badgeWidth > 0 && room - badgeWidth >= least;
    room -= showBadge ? badgeWidth : 0;

    name = QRect(line.left(), line.top(), std::min(wishes.name, room), line.height());
    int x = name.right() + 1;
    if (showGlyph) {
        nameGlyph = centred(x + m.gap, line, m.glyphSize, m.glyphSize);
        x += glyphWidth;
    }
    if (showBadge)
        badge = centred(x + m.gap, line, badgeWidth - m.gap, m.badgeHeight);
}

void RowCell::layoutPlaceLine(const RowMetrics &m, const Wishes &wishes, const QRect &line)
{
    const bool showGlyph = wishes.placeGlyph && line.width() >= m.leastNameWidth / 2;
    if (showGlyph)
        placeGlyph = centred(line.left(), line, m.glyphSize, m.glyphSize);
    const int left = line.left() + (showGlyph ? m.glyphSize + m.gap : 0);
    int room = line.right() + 1 - left;
    const int detailGap = m.gap * 2 / 3; // about a blank: there is another one behind its dot
    const int detailWidth = wishes.detail > 0 ? wishes.detail + detailGap : 0;
    const bool showDetail =
        detailWidth > 0 && room - detailWidth >= std::min(wishes.place, m.leastNameWidth / 2);
    room -= showDetail ? detailWidth : 0;
    place = QRect(left, line.top(), std::min(wishes.place, room), line.height());
    if (showDetail)
        detail = QRect(place.right() + 1 + detailGap, line.top(), wishes.detail, line.height());
}

// Text and bar one below the other, side by side, or the one alone.
void RowCell::layoutState(const RowMetrics &m, const Wishes &wishes, const QRect &room, bool barBelow)
{
    state = QRect(room.left(), room.top(), std::min(wishes.state, room.width()), room.height());
    if (!wishes.progress)
        return;
    if (barBelow) {
        progress = QRect(room.left(), room.bottom() + 1 + 2 * m.lineGap, room.width(), m.barHeight);
        return;
    }
    const int left = wishes.state > 0 ? state.right() + 1 + m.gap : room.left();
    const int width = std::min(room.right() + 1 - left, m.stateColumn - (left - room.left()));
    if (width >= m.glyphSize)
        progress = centred(left, room, width, m.barHeight);
}

int RowCell::buttonAt(const QPoint &point) const
{
    const auto hit = std::find_if(
        buttons.cbegin(), buttons.cend(), [&point](const QRect &rect) { return rect.contains(point); });
    return hit == buttons.cend() ? -1 : int(hit - buttons.cbegin());
}
