#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVector>
#include <optional>

/// Where the small floating window stands: rules on plain values, without a screen. Any thread. All lengths
/// are device-independent pixels.
namespace zel::mini {

enum class Edge { None, Left, Top, Right };

/// One screen as these rules see it.
struct Screen
{
    QString key;     ///< the same whenever this screen is there
    QRect geometry;  ///< all of it
    QRect available; ///< without the desktop's panels
};
using Screens = QVector<Screen>; ///< the primary one first

/// A place on a screen, whichever that is.
struct Place
{
    Edge edge = Edge::None;
    /// From the top left of the available area; docked, only the one along the edge counts.
    QPoint offset;

    bool operator==(const Place &) const = default;
};

/// "left 0 120"; what fromText() does not know is no place.
QString toText(const Place &place);
std::optional<Place> fromText(const QString &text);

/// Where the window goes that has no place yet: free, near the top right corner.
Place firstPlace(const QSize &window, const QRect &available, int distance);
/// The place of a window that was let go at `window`: docked where it is nearer than `snap` to an edge or
/// beyond it, else free.
Place placeOf(const QRect &window, const QRect &available, int snap);
/// The screen with most of `window` on it, else the nearest; -1 only without screens.
int screenOf(const QRect &window, const Screens &screens);
/// The screen with that key, else the primary one; -1 only without screens.
int screenWithKey(const QString &key, const Screens &screens);

/// The whole window at its place: inside the available area, and made smaller where that is too small.
QRect outRect(const Place &place, const QSize &window, const QRect &available);
/// What is seen of a window that stands docked at `out`, from 0 (a strip of `strip`) to 1 (all of it).
QRect seenRect(Edge edge, const QRect &out, qreal part, int strip);
/// Where the top left of the whole window lies, as seen from that of its seen part.
QPoint contentOffset(Edge edge, const QSize &whole, const QSize &seen);

/// Whether a window docked at `out` may slide out of sight: the pointer comes to rest at that edge, because
/// no other screen lies beyond it.
bool canTuckAway(Edge edge, const QRect &out, const Screen &screen, const Screens &screens);

/// The same rectangle as distances from edges that a desktop keeps: `anchors` are those edges.
struct Anchored
{
    Qt::Edges anchors;
    QMargins margins;

    bool operator==(const Anchored &) const = default;
};
Anchored anchored(Edge edge, const QRect &rect, const QRect &screen);

} // namespace zel::mini
