#include "styleparts.h"

#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace zel::style {
namespace {

using Color = KSkin::Color;

QColor accentFor(const QStyleOption &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return overlay(0.10);
    const qreal share = option.state & QStyle::State_Sunken ? 0.20
        : option.state & QStyle::State_MouseOver            ? 0.10
                                                            : 0;
    return mixed(KSkin::color(Color::Accent), KSkin::color(Color::Text), share);
}

QColor plainFill(const QStyleOptionButton &option)
{
    if (option.features & QStyleOptionButton::Flat)
        return Qt::transparent;
    return overlay(option.state & QStyle::State_Enabled ? 0.06 : 0.04);
}

// Box of a check box and ring of a radio button alike.
void drawIndicatorGround(
    const QStyleOption &option, QPainter *painter, const QRectF &rect, qreal radius, bool on)
{
    if (on) {
        fillRounded(painter, rect, radius, accentFor(option));
        return;
    }
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool hovered = enabled && (option.state & (QStyle::State_MouseOver | QStyle::State_Sunken));
    fillRounded(painter, rect, radius, enabled ? option.palette.color(QPalette::Base) : overlay(0.04));
    fillRounded(painter, rect, radius, overlayFor(option));
    const Color border = !enabled ? Color::TextDisabled : hovered ? Color::Accent : Color::ControlBorder;
    strokeRounded(painter, rect, radius, KSkin::color(border), KLiteStyle::dpiScaledF(1.25));
}

QColor markColor(const QStyleOption &option)
{
    return KSkin::color(option.state & QStyle::State_Enabled ? Color::OnAccent : Color::TextDisabled);
}

} // namespace

bool isPrimary(const QStyleOptionButton &option)
{
    return (option.features & QStyleOptionButton::DefaultButton)
        && !(option.features & QStyleOptionButton::Flat);
}

void drawPushButtonPanel(const QStyleOptionButton &option, QPainter *painter)
{
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    if (isPrimary(option)) {
        fillRounded(painter, option.rect, radius, accentFor(option));
        return;
    }
    fillRounded(painter, option.rect, radius, plainFill(option));
    if (option.state & QStyle::State_On)
        fillRounded(painter, option.rect, radius, KSkin::color(Color::Selected));
    fillRounded(painter, option.rect, radius, overlayFor(option));
    if (!(option.features & QStyleOptionButton::Flat) && (option.state & QStyle::State_Enabled))
        strokeInHighContrast(painter, option.rect, radius);
}

void drawPushButton(
    const QProxyStyle &style, const QStyleOptionButton &option, QPainter *painter, const QWidget *w)
{
    style.drawControl(QStyle::CE_PushButtonBevel, &option, painter, w);
    QStyleOptionButton label = option;
    label.rect = style.subElementRect(QStyle::SE_PushButtonContents, &option, w);
    style.drawControl(QStyle::CE_PushButtonLabel, &label, painter, w);
    if (!showsKeyboardFocus(option))
        return;
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    if (!isPrimary(option)) {
        drawFocusRing(painter, option.rect, radius, KSkin::color(Color::Accent));
        return;
    }
    // On the accent itself the ring takes the colour of its text and leaves a rim.
    const QRectF inner = QRectF(option.rect).adjusted(2, 2, -2, -2);
    drawFocusRing(painter, inner, radius - 2, KSkin::color(Color::OnAccent));
}

void drawToolButtonPanel(const QStyleOption &option, QPainter *painter)
{
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    if (!(option.state & QStyle::State_AutoRaise))
        fillRounded(painter, option.rect, radius, overlay(0.06));
    if (option.state & QStyle::State_On)
        fillRounded(painter, option.rect, radius, KSkin::color(Color::Selected));
    fillRounded(painter, option.rect, radius, overlayFor(option));
}

void drawCheckIndicator(const QStyleOption &option, QPainter *painter)
{
    const QRectF box(option.rect);
    const bool partly = option.state & QStyle::State_NoChange;
    const bool checked = option.state & QStyle::State_On;
    drawIndicatorGround(option, painter, box, KLiteStyle::dpiScaledF(look::RadiusSmall), partly || checked);
    if (checked)
        drawTick(painter, box, markColor(option));
    if (partly) {
        const qreal thickness = box.height() / 9;
        const QRectF dash(
            box.left() + box.width() * 0.27, box.center().y() - thickness / 2, box.width() * 0.46, thickness);
        fillRounded(painter, dash, thickness / 2, markColor(option));
    }
}

void drawRadioIndicator(const QStyleOption &option, QPainter *painter)
{
    const QRectF ring(option.rect);
    const bool on = option.state & QStyle::State_On;
    drawIndicatorGround(option, painter, ring, ring.height() / 2, on);
    if (!on)
        return;
    const qreal radius = ring.width() * 0.2;
    fillRounded(painter, QRectF(ring.center() - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)),
        radius, markColor(option));
}

} // namespace zel::style
