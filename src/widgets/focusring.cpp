#include "widgets/focusring.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

#include <QPainter>
#include <QWidget>

void zel::paintFocusRing(QPainter *painter, const QWidget *widget, const QRectF &rect, qreal radius)
{
    if (!widget->hasFocus() || !widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    const qreal width = qMax(look::FocusWidth, KLiteStyle::dpiScaledF(look::FocusWidth));
    const qreal inset = width / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(KSkin::color(KSkin::Color::Accent), width));
    painter->drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    painter->restore();
}
