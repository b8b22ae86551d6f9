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
    int right = inner.right() + 1;
    if (wishes.time > 0 && right - left - wishes.time - m.spacing >= m.leastNameWidth) {
        cell.time = QRect(right - wishes.time, cell.ground.top(), wishes.time, cell.ground.height());
        right = cell.time.left() - m.spacing;
    }

    const int top = middle - (m.nameHeight + m.folderHeight + 2) / 2;
    const int badge = wishes.badge > 0 ? wishes.badge + 2 * m.badgePadding : 0;
    const bool showBadge = badge > 0 && right - left - badge - m.spacing / 2 >= m.leastNameWidth / 2;
    const int roomForName = std::max(0, right - left - (showBadge ? badge + m.spacing / 2 : 0));
    cell.name = QRect(left, top, std::min(wishes.name, roomForName), m.nameHeight);
    if (showBadge) {
        const int badgeTop = top + (m.nameHeight - m.badgeHeight) / 2;
        cell.badge = QRect(cell.name.right() + 1 + m.spacing / 2, badgeTop, badge, m.badgeHeight);
    }
    cell.folder = QRect(left, top + m.nameHeight + 2, std::max(0, right - left), m.folderHeight);
    return cell;
}

namespace zel::recent {

static bool turnsDirection(QChar c)
{
    const ushort code = c.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

QString plainLine(QString text)
{
    const auto isUnwanted = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator || turnsDirection(c);
    };
    std::replace_if(text.begin(), text.end(), isUnwanted, QLatin1Char(' '));
    return text;
}

QString elidedName(const QString &name, const QFontMetrics &metrics, int width)
{
    constexpr int LongestSuffix = 9; // with its dot; longer ones are part of a sentence rather than a type
    const QString text = plainLine(name);
    if (metrics.horizontalAdvance(text) <= width)
        return text;
    const int dot = text.lastIndexOf(QLatin1Char('.'));
    if (dot <= 0 || text.size() - dot > LongestSuffix)
        return metrics.elidedText(text, Qt::ElideMiddle, width);
    const QString suffix = text.mid(dot);
    const int rest = width - metrics.horizontalAdvance(suffix);
    const QString base = rest > 0 ? metrics.elidedText(text.left(dot), Qt::ElideMiddle, rest) : QString();
    return base.isEmpty() ? metrics.elidedText(text, Qt::ElideLeft, width) : base + suffix;
}

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
