#pragma once

#include "klook.h"
#include "kskin.h"

#include <QColor>
#include <QRect>
#include <QRectF>

class QPainter;
class QStyleOption;

/// Shapes that every part of the style draws with. Lengths are device-independent pixels, already scaled.
namespace zel::style {

/// `base` with `share` (0 to 1) of `other` mixed in; opaque when both are.
QColor mixed(const QColor &base, const QColor &other, qreal share);

/// The skin's text colour made so transparent that it only darkens (or lightens) whatever ground it is laid
/// over.
QColor overlay(qreal opacity);

/// Laid over a button by state: nothing, hovered, or pressed.
QColor overlayFor(const QStyleOption &option);

void fillRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &fill);
/// A line of `width` inside the edge of `rect`.
void strokeRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color, qreal width = 1);

/// look::FocusWidth wide, inside `rect`.
void drawFocusRing(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color);
/// True when the focus is to be shown: the control has it and it was moved by the keyboard.
bool showsKeyboardFocus(const QStyleOption &option);

QColor grooveColor(); ///< of sliders and progress bars, under the filled part

/// Where shades of grounds alone tell a shape in the ordinary skin, high contrast gives it an edge.
void strokeInHighContrast(QPainter *painter, const QRectF &rect, qreal radius);

void drawChevron(QPainter *painter, const QRect &rect, Qt::ArrowType direction, const QColor &color);
void drawTick(QPainter *painter, const QRectF &box, const QColor &color);

/// The ground and border of a text field, combo box or spin box.
void drawField(QPainter *painter, const QStyleOption &option, bool focusAlwaysShows);

/// Text colour by the state of the option.
QColor textColor(const QStyleOption &option, KSkin::Color enabled = KSkin::Color::Text);

} // namespace zel::style
