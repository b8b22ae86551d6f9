#include "mini/minidock.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace zel::mini {
namespace {

struct NamedEdge
{
    Edge edge;
    QLatin1String name;
};

constexpr std::array EdgeNames{NamedEdge{Edge::None, QLatin1String("free", 4)},
    NamedEdge{Edge::Left, QLatin1String("left", 4)}, NamedEdge{Edge::Top, QLatin1String("top", 3)},
    NamedEdge{Edge::Right, QLatin1String("right", 5)}};

int held(int value, int least, int most)
{
    return std::max(least, std::min(value, most));
}

int area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : rect.width() * rect.height();
}

int distance(const QRect &rect, const QPoint &point)
{
    const QPoint nearest(
        held(point.x(), rect.left(), rect.right()), held(point.y(), rect.top(), rect.bottom()));
    return (point - nearest).manhattanLength();
}

bool meet(int firstBegin, int firstEnd, int secondBegin, int secondEnd)
{
    return firstBegin <= secondEnd && secondBegin <= firstEnd;
}

} // namespace

QString toText(const Place &place)
{
    const auto named = std::find_if(
        EdgeNames.begin(), EdgeNames.end(), [&](const NamedEdge &each) { return each.edge == place.edge; });
    return named->name % QLatin1Char(' ') % QString::number(place.offset.x()) % QLatin1Char(' ')
        % QString::number(place.offset.y());
}

std::optional<Place> fromText(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const auto named = std::find_if(EdgeNames.begin(), EdgeNames.end(),
        [&](const NamedEdge &each) { return words.value(0) == each.name; });
    bool xOk = false;
    bool yOk = false;
    const QPoint offset(words.value(1).toInt(&xOk), words.value(2).toInt(&yOk));
    if (words.size() != 3 || named == EdgeNames.end() || !xOk || !yOk)
        return std::nullopt;
    return Place{named->edge, offset};
}

Place firstPlace(const QSize &window, const QRect &available, int distance)
{
    return {Edge::None, {std::max(0, available.width() - window.width() - distance), distance}};
}

Place placeOf(const QRect &window, const QRect &available, int snap)
{
    const std::array distances{
        window.left() - available.left(), window.top() - available.top(), available.right() - window.right()};
    constexpr std::array edges{Edge::Left, Edge::Top, Edge::Right};
    const auto nearest = std::min_element(distances.begin(), distances.end());
    const Edge edge = *nearest < snap ? edges.at(std::size_t(nearest - distances.begin())) : Edge::None;
    return {edge, window.topLeft() - available.topLeft()};
}

int screenOf(const QRect &window, const Screens &screens)
{
    int best = -1;
    for (int i = 0; i < screens.size(); ++i) {
        const auto shared = [&](int at) { return area(screens.at(at).geometry & window); };
        const auto away = [&](int at) { return distance(screens.at(at).geometry, window.center()); };
        const bool better =
            best < 0 || shared(i) > shared(best) || (shared(i) == shared(best) && away(i) < away(best));
        if (better)
            best = i;
    }
    return best;
}

int screenWithKey(const QString &key, const Screens &screens)
{
    for (int i = 0; i < screens.size(); ++i) {
        if (screens.at(i).key == key)
            return i;
    }
    return screens.isEmpty() ? -1 : 0;
}

QRect outRect(const Place &place, const QSize &window, const QRect &available)
{
    const QSize size = window.boundedTo(available.size());
    // Stored offsets may be anything; held before they are added, so that nothing overflows.
    int x = held(place.offset.x(), 0, available.width() - size.width());
    int y = held(place.offset.y(), 0, available.height() - size.height());
    if (place.edge == Edge::Left)
        x = 0;
    else if (place.edge == Edge::Right)
        x = available.width() - size.width();
    else if (place.edge == Edge::Top)
        y = 0;
    return {available.topLeft() + QPoint(x, y), size};
}

// The window never leaves the screen: window managers would push it back, and on a neighbour it would show.
QRect seenRect(Edge edge, const QRect &out, qreal part, int strip)
{
    const auto seen = [&](int whole) { return held(qRound(whole * part), std::min(strip, whole), whole); };
    QRect rect = out;
    switch (edge) {
    case Edge::None:
        break;
    case Edge::Left:
        rect.setWidth(seen(out.width()));
        break;
    case Edge::Top:
        rect.setHeight(seen(out.height()));
        break;
    case Edge::Right:
        rect.setLeft(out.right() + 1 - seen(out.width()));
        break;
    }
    return rect;
}

QPoint contentOffset(Edge edge, const QSize &whole, const QSize &seen)
{
    switch (edge) {
    case Edge::Left:
        return {seen.width() - whole.width(), 0};
    case Edge::Top:
        return {0, seen.height() - whole.height()};
    case Edge::None:
    case Edge::Right:
        break;
    }
    return {};
}

// By what lies beyond rather than what touches: screens of different scale leave gaps between them.
bool canTuckAway(Edge edge, const QRect &out, const Screen &screen, const Screens &screens)
{
    const QRect &own = screen.geometry;
    return edge != Edge::None && std::none_of(screens.begin(), screens.end(), [&](const Screen &other) {
        const QRect &there = other.geometry;
        if (edge == Edge::Top)
            return there.bottom() < own.top() && meet(there.left(), there.right(), out.left(), out.right());
        const bool beyond = edge == Edge::Left ? there.right() < own.left() : there.left() > own.right();
        return beyond && meet(there.top(), there.bottom(), out.top(), out.bottom());
    });
}

Anchored anchored(Edge edge, const QRect &rect, const QRect &screen)
{
    if (edge == Edge::Right)
        return {Qt::TopEdge | Qt::RightEdge,
            QMargins(0, rect.top() - screen.top(), screen.right() - rect.right(), 0)};
    return {
        Qt::TopEdge | Qt::LeftEdge, QMargins(rect.left() - screen.left(), rect.top() - screen.top(), 0, 0)};
}

} // namespace zel::mini
