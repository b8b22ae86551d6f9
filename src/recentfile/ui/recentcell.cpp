#include "recentfile/ui/recentcell.h"

#include "klitestyle.h"

#include <algorithm>

RecentCellMetrics RecentCellMetrics::of(const QFontMetrics &name, const QFontMetrics &small)
{
    RecentCellMetrics metrics;
    metrics.sideMargin = KLiteStyle::dpiScaled(12);
    metrics.padding = KLiteStyle::dpiScaled(12);
    metrics.iconSize = KLiteStyle::dpiScaled(32);
    metrics.spacing = KLiteStyle::dpiScaled(12);
    metrics.gap = KLiteStyle::dpiScaled(6);
    metrics.glyphSize = KLiteStyle::dpiScaled(12);
    metrics.buttonSize = KLiteStyle::dpiScaled(28);
    metrics.badgeHeight = small.height() + KLiteStyle::dpiScaled(1);
    metrics.badgePadding = KLiteStyle::dpiScaled(6);
    metrics.nameHeight = name.height();
    metrics.folderHeight = small.height();
    metrics.leastNameWidth = KLiteStyle::dpiScaled(120);
    const int texts = metrics.nameHeight + metrics.folderHeight + KLiteStyle::dpiScaled(14);
    metrics.rowHeight = std::max(KLiteStyle::dpiScaled(52), texts);
    return metrics;
}

RecentCell RecentCell::layout(const QRect &row, const RecentCellMetrics &m, const Wishes &wishes)
{
    RecentCell cell;
    cell.ground = row.adjusted(m.sideMargin, 1, -m.sideMargin, -1);
    const QRect inner = cell.ground.adjusted(m.padding, 0, -m.padding, 0);
    const int middle = row.top() + row.height() / 2;
    cell.icon = QRect(inner.left(), middle - m.iconSize / 2, m.iconSize, m.iconSize);

    const int left = cell.icon.right() + 1 + m.spacing;
    const int right = cell.layoutRight(m, wishes, left, inner.right() + 1);
    const int width = std::max(0, right - left);
    const int top = middle - (m.nameHeight + m.folderHeight + 2) / 2;
    cell.layoutNameLine(m, wishes, QRect(left, top, width, m.nameHeight));
    cell.layoutFolderLine(m, wishes, QRect(left, top + m.nameHeight + 2, width, m.folderHeight));
    return cell;
}

// Time and buttons share a column that is wide enough for both, so that no text moves when the pointer comes.
// Returns where the room for the other texts ends.
int RecentCell::layoutRight(const RecentCellMetrics &m, const Wishes &wishes, int left, int right)
{
    const int column = std::max(wishes.time, 2 * m.buttonSize);
    if (right - left - column - m.spacing < m.leastNameWidth)
        return right;
    if (wishes.buttons) {
        const int end = right + m.padding / 2; // the glyph, rather than its ground, ends with the time texts
        const int top = ground.top() + (ground.height() - m.buttonSize) / 2;
        more = QRect(end - m.buttonSize, top, m.buttonSize, m.buttonSize);
        share = more.translated(-m.buttonSize, 0);
    } else if (wishes.time > 0) {
        time = QRect(right - wishes.time, ground.top(), wishes.time, ground.height());
    }
    return right - column - m.spacing;
}

void RecentCell::layoutNameLine(const RecentCellMetrics &m, const Wishes &wishes, const QRect &line)
{
    const int pinWidth = wishes.pin ? m.gap + m.glyphSize : 0;
    const int badgeWidth = wishes.badge > 0 ? m.gap + wishes.badge + 2 * m.badgePadding : 0;
    const int least = m.leastNameWidth / 2;
    const bool showPin = pinWidth > 0 && line.width() - pinWidth >= least;
    int room = line.width() - (showPin ? pinWidth : 0);
    const bool showBadge = badgeWidth > 0 && room - badgeWidth >= least;
    room -= showBadge ? badgeWidth : 0;

    name = QRect(line.left(), line.top(), std::min(wishes.name, room), line.height());
    int x = name.right() + 1;
    if (showPin) {
        pin = QRect(x + m.gap, line.top() + (line.height() - m.glyphSize) / 2, m.glyphSize, m.glyphSize);
        x += pinWidth;
    }
    if (showBadge)
        badge = QRect(
            x + m.gap, line.top() + (line.height() - m.badgeHeight) / 2, badgeWidth - m.gap, m.badgeHeight);
}

void RecentCell::layoutFolderLine(const RecentCellMetrics &m, const Wishes &wishes, const QRect &line)
{
    const int cloudWidth = wishes.cloud && line.width() >= m.leastNameWidth / 2 ? m.glyphSize + m.gap : 0;
    if (cloudWidth > 0) {
        const int top = line.top() + (line.height() - m.glyphSize) / 2;
        cloud = QRect(line.left(), top, m.glyphSize, m.glyphSize);
    }
    const int left = line.left() + cloudWidth;
    int room = line.width() - cloudWidth;
    const int detailGap = m.gap * 2 / 3; // about a blank: there is another one behind its dot
    const int detailWidth = wishes.detail > 0 ? wishes.detail + detailGap : 0;
    const bool showDetail =
        detailWidth > 0 && room - detailWidth >= std::min(wishes.folder, m.leastNameWidth / 2);
    room -= showDetail ? detailWidth : 0;
    folder = QRect(left, line.top(), std::min(wishes.folder, room), line.height());
    if (showDetail)
        detail = QRect(folder.right() + 1 + detailGap, line.top(), wishes.detail, line.height());
}

RecentCell::Button RecentCell::buttonAt(const QPoint &point) const
{
    return share.contains(point) ? Button::Share : more.contains(point) ? Button::More : Button::None;
}

QRect RecentCell::rectOf(Button button) const
{
    return button == Button::Share ? share : button == Button::More ? more : QRect();
}

namespace zel::recent {

QString folderText(const QString &path, const QString &home)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0)
        return {};
    const QString folder = plainLine(slash == 0 ? QStringLiteral("/") : path.left(slash));
    if (home.size() > 1 && (folder == home || folder.startsWith(home + QLatin1Char('/'))))
        return QLatin1Char('~') + folder.mid(home.size());
    return folder;
}

} // namespace zel::recent
