#include "widgets/chip.h"

#include "klitestyle.h"
#include "kskin.h"

#include <QEvent>
#include <QPainter>

namespace {
constexpr int SidePadding = 12;
constexpr int Height = 26;
} // namespace

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
    const int width = fontMetrics().horizontalAdvance(text()) + KLiteStyle::dpiScaled(2 * SidePadding);
    return {width, qMax(KLiteStyle::dpiScaled(Height), fontMetrics().height() + KLiteStyle::dpiScaled(8))};
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
    const QColor accent = KSkin::color(KSkin::Color::Accent);
    QColor ground = accent;
    ground.setAlphaF(0.12);
    if (!isChecked())
        ground = underMouse() ? KSkin::color(KSkin::Color::Hover) : QColor(Qt::transparent);
    painter.setPen(isChecked() ? QPen(Qt::NoPen) : QPen(KSkin::color(KSkin::Color::Border)));
    painter.setBrush(ground);
    painter.drawRoundedRect(pill, radius, radius);
    painter.setPen(isChecked() ? accent : KSkin::color(KSkin::Color::Text));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(accent, 2));
        painter.drawRoundedRect(pill.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
    }
}
