#include "styleparts.h"

#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionSlider>

namespace zel::style {
namespace {

constexpr int MinHandleLength = 32;
constexpr int GrooveThickness = 4;

// The handle's extent along the bar: first pixel from the bar's start, and length.
struct Span
{
    int begin;
    int length;
};

Span handleSpan(const QStyleOptionSlider &option, int barLength)
{
    const qint64 range = qint64(option.maximum) - option.minimum;
    if (range <= 0)
        return {0, barLength};
    const qint64 page = qMax(1, option.pageStep);
    const int wanted = int(page * barLength / (range + page));
    const int length = qMin(barLength, qMax(wanted, KLiteStyle::dpiScaled(MinHandleLength)));
    const int begin = QStyle::sliderPositionFromValue(
        option.minimum, option.maximum, option.sliderPosition, barLength - length, option.upsideDown);
    return {begin, length};
}

QRect along(const QStyleOptionSlider &option, int begin, int length)
{
    const QRect &bar = option.rect;
    if (option.orientation == Qt::Vertical)
        return {bar.left(), bar.top() + begin, bar.width(), length};
    return QStyle::visualRect(
        option.direction, bar, QRect(bar.left() + begin, bar.top(), length, bar.height()));
}

} // namespace

// There are no arrow buttons: the bar is page area, handle, page area.
QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    const int length = option.orientation == Qt::Vertical ? option.rect.height() : option.rect.width();
    const Span handle = handleSpan(option, length);
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return along(option, handle.begin, handle.length);
    case QStyle::SC_ScrollBarSubPage:
        return along(option, 0, handle.begin);
    case QStyle::SC_ScrollBarAddPage:
        return along(option, handle.begin + handle.length, length - handle.begin - handle.length);
    case QStyle::SC_ScrollBarGroove:
        return option.rect;
    default:
        return {};
    }
}

void drawScrollBar(
    const QProxyStyle &style, const QStyleOptionSlider &option, QPainter *painter, const QWidget *w)
{
    if (option.maximum <= option.minimum)
        return;
    const QRect slider = style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, w);
    const QRectF handle = QRectF(slider).adjusted(1, 1, -1, -1);
    const bool onHandle = option.activeSubControls & QStyle::SC_ScrollBarSlider;
    const bool pressed = onHandle && (option.state & QStyle::State_Sunken);
    const bool hovered = option.state & QStyle::State_MouseOver;
    const KSkin::Color color = pressed ? KSkin::Color::Text
        : hovered                      ? KSkin::Color::TextSecondary
                                       : KSkin::Color::ControlBorder;
    fillRounded(painter, handle, qMin(handle.width(), handle.height()) / 2, KSkin::color(color));
}

void drawSlider(
    const QProxyStyle &style, const QStyleOptionSlider &option, QPainter *painter, const QWidget *w)
{
    const QRect handle = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, w);
    const QPointF knob = QRectF(handle).center();
    const qreal half = KLiteStyle::dpiScaledF(GrooveThickness) / 2;
    const bool flat = option.orientation == Qt::Horizontal;
    const QRectF bar(option.rect);
    const QRectF groove = flat ? QRectF(bar.left(), knob.y() - half, bar.width(), 2 * half)
                               : QRectF(knob.x() - half, bar.top(), 2 * half, bar.height());
    fillRounded(painter, groove, half, grooveColor());
    QRectF filled = groove;
    const bool fromEnd = option.upsideDown;
    if (flat)
        fromEnd ? filled.setLeft(knob.x()) : filled.setRight(knob.x());
    else
        fromEnd ? filled.setTop(knob.y()) : filled.setBottom(knob.y());
    const bool enabled = option.state & QStyle::State_Enabled;
    const QColor accent = KSkin::color(enabled ? KSkin::Color::Accent : KSkin::Color::TextDisabled);
    fillRounded(painter, filled, half, accent);

    const qreal radius = qMin(handle.width(), handle.height()) / 2.0 - 1;
    const QRectF round(knob - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    fillRounded(painter, round, radius, KSkin::color(KSkin::Color::Surface));
    strokeRounded(painter, round, radius, accent, KLiteStyle::dpiScaledF(showsKeyboardFocus(option) ? 4 : 2));
}

} // namespace zel::style
