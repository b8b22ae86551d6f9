#include "widgets/chip.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/focusring.h"

#include <QEvent>
#include <QPainter>

namespace look = zel::look;

static constexpr int Height = 26;

Chip::Chip(const QString &text, QWidget *parent) : QAbstractButton(parent)
{
    setText(text);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Chip::sizeHint() const
{
    const int width = fontMetrics().horizontalAdvance(text()) + KLiteStyle::dpiScaled(2 * look::SpaceM);
    return {width,
        qMax(KLiteStyle::dpiScaled(Height), fontMetrics().height() + KLiteStyle::dpiScaled(look::SpaceS))};
}

bool Chip::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void Chip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF pill = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal radius = pill.height() / 2;
    const bool active = isEnabled() && (underMouse() || isDown());
    QColor ground = active ? KSkin::color(KSkin::Color::Hover) : QColor(Qt::transparent);
    if (isChecked()) {
        ground = KSkin::color(KSkin::Color::Accent);
        ground.setAlphaF(active ? look::SoftTintActive : look::SoftTint);
    }
    const bool edged = !isChecked() || KSkin::highContrast();
    painter.setPen(edged ? QPen(KSkin::color(isChecked() ? KSkin::Color::Accent : KSkin::Color::Border))
                         : QPen(Qt::NoPen));
    painter.setBrush(ground);
    painter.drawRoundedRect(pill, radius, radius);
    painter.setPen(KSkin::color(!isEnabled() ? KSkin::Color::TextDisabled
            : isChecked()                    ? KSkin::Color::Accent
                                             : KSkin::Color::Text));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    zel::paintFocusRing(&painter, this, QRectF(rect()), rect().height() / 2.0);
}
