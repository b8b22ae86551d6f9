#include "stylepaint.h"

#include "klitestyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace zel::style {
namespace {

constexpr qreal HoverOpacity = 0.07;
constexpr qreal PressedOpacity = 0.13;
constexpr qreal GrooveOpacity = 0.14;

void strokePath(QPainter *painter, const QPolygonF &line, const QColor &color, qreal width)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(line);
    painter->restore();
}

} // namespace

QColor mixed(const QColor &base, const QColor &other, qreal share)
{
    const auto blend = [share](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(blend(base.redF(), other.redF()), blend(base.greenF(), other.greenF()),
        blend(base.blueF(), other.blueF()), blend(base.alphaF(), other.alphaF()));
}

QColor overlay(qreal opacity)
{
    QColor color = KSkin::color(KSkin::Color::Text);
    color.setAlphaF(opacity);
    return color;
}

QColor overlayFor(const QStyleOption &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return Qt::transparent;
    if (option.state & QStyle::State_Sunken)
        return overlay(PressedOpacity);
    return option.state & QStyle::State_MouseOver ? overlay(HoverOpacity) : QColor(Qt::transparent);
}

void fillRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &fill)
{
    if (fill.alpha() == 0)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(fill);
    painter->drawRoundedRect(rect, radius, radius);
    painter->restore();
}

void strokeRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color, qreal width)
{
    const qreal inset = width / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, width));
    painter->drawRoundedRect(
        rect.adjusted(inset, inset, -inset, -inset), qMax(0.0, radius - inset), qMax(0.0, radius - inset));
    painter->restore();
}

void drawFocusRing(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color)
{
    strokeRounded(
        painter, rect, radius, color, qMax(look::FocusWidth, KLiteStyle::dpiScaledF(look::FocusWidth)));
}

bool showsKeyboardFocus(const QStyleOption &option)
{
    return (option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange);
}

QColor grooveColor()
{
    return KSkin::highContrast() ? KSkin::color(KSkin::Color::Border) : overlay(GrooveOpacity);
}

void strokeInHighContrast(QPainter *painter, const QRectF &rect, qreal radius)
{
    if (KSkin::highContrast())
        strokeRounded(painter, rect, radius, KSkin::color(KSkin::Color::ControlBorder));
}

void drawChevron(QPainter *painter, const QRect &rect, Qt::ArrowType direction, const QColor &color)
{
    const qreal reach = KLiteStyle::dpiScaledF(3.5);
    const QPointF middle = QRectF(rect).center();
    const QPolygonF pointingDown(QVector<QPointF>{{-reach, -reach / 2}, {0, reach / 2}, {reach, -reach / 2}});
    QTransform turn;
    turn.translate(middle.x(), middle.y());
    turn.rotate(direction == Qt::UpArrow  ? 180
            : direction == Qt::LeftArrow  ? 90
            : direction == Qt::RightArrow ? -90
                                          : 0);
    strokePath(painter, turn.map(pointingDown), color, KLiteStyle::dpiScaledF(1.5));
}

void drawTick(QPainter *painter, const QRectF &box, const QColor &color)
{
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + box.width() * x, box.top() + box.height() * y);
    };
    const QVector<QPointF> tick{at(0.26, 0.53), at(0.43, 0.70), at(0.75, 0.33)};
    strokePath(painter, tick, color, box.width() / 9);
}

void drawField(QPainter *painter, const QStyleOption &option, bool focusAlwaysShows)
{
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    const QRectF rect(option.rect);
    const bool enabled = option.state & QStyle::State_Enabled;
    fillRounded(painter, rect, radius, enabled ? option.palette.color(QPalette::Base) : overlay(0.04));
    const bool focused =
        focusAlwaysShows ? bool(option.state & QStyle::State_HasFocus) : showsKeyboardFocus(option);
    if (focused && enabled) {
        drawFocusRing(painter, rect, radius, KSkin::color(KSkin::Color::Accent));
        return;
    }
    const bool hovered = option.state & QStyle::State_MouseOver;
    const KSkin::Color border = !enabled ? KSkin::Color::Border
        : hovered                        ? KSkin::Color::TextSecondary
                                         : KSkin::Color::ControlBorder;
    strokeRounded(painter, rect, radius, KSkin::color(border));
}

QColor textColor(const QStyleOption &option, KSkin::Color enabled)
{
    return KSkin::color(option.state & QStyle::State_Enabled ? enabled : KSkin::Color::TextDisabled);
}

} // namespace zel::style
