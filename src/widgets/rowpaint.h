#pragma once

#include <QColor>
#include <QFontMetrics>
#include <QRect>

class QPainter;
class QStyleOption;

/// What the rows of all lists are painted with, so that they look alike. GUI thread.
namespace zel {

/// Hover, selection and focus ring of a row, from the state of `option`. Needs antialiasing.
void paintRowGround(QPainter *painter, const QRect &ground, const QStyleOption &option);

/// One line of text in the middle of `rect`. By its base line, because a font that steps in for missing
/// letters is often taller and would push the line down.
void paintTextLine(QPainter *painter, const QRect &rect, const QFontMetrics &metrics, const QString &text);

/// A line icon that fills `rect`.
void paintGlyph(QPainter *painter, const QRect &rect, const QString &icon, const QColor &color);

/// A thin bar; at 0 percent an empty one.
void paintProgress(QPainter *painter, const QRect &rect, int percent);

/// Ground of a badge whose text is in `color`, which is left as the pen; `selected`: its row is. Needs
/// antialiasing.
void paintBadge(QPainter *painter, const QRect &rect, const QColor &color, bool selected);

/// Ground and frame of what takes the things that are dragged: a row, a step of a path, or (`quiet`) a whole
/// list, whose rows stay readable. Needs antialiasing.
void paintDropGround(QPainter *painter, const QRect &rect, bool quiet = false);

/// The veil under a row's button that the pointer is on.
void paintButtonVeil(QPainter *painter, const QRect &rect, bool pressed);

} // namespace zel
