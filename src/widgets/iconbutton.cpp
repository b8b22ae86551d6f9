#include "widgets/iconbutton.h"

#include "klitestyle.h"
#include "klook.h"
#include "widgets/focusring.h"
#include "widgets/svgicon.h"

#include <QEvent>
#include <QPainter>

namespace look = zel::look;

IconButton::IconButton(const QString &icon, const QString &name, QWidget *parent)
    : QAbstractButton(parent), m_icon(icon)
{
    setName(name);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconButton::setIconPath(const QString &icon)
{
    m_icon = icon;
    update();
}

void IconButton::setName(const QString &name)
{
    setAccessibleName(name);
    setToolTip(name);
}

void IconButton::setHoverColor(KSkin::Color background, KSkin::Color foreground)
{
    m_hoverBackground = background;
    m_hoverForeground = foreground;
}

void IconButton::setGlyphSize(int pixels)
{
    m_glyphSize = pixels;
    update();
}

QSize IconButton::sizeHint() const
{
    return KLiteStyle::dpiScaledSize({look::ControlHeight, look::ControlHeight});
}

bool IconButton::event(QEvent *event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void IconButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    const bool hovered = isEnabled() && (underMouse() || isDown() || isChecked());
    if (hovered) {
        QColor background = KSkin::color(m_hoverBackground);
        if (isDown())
            background = KSkin::isDark() ? background.lighter(115) : background.darker(106);
        painter.setPen(Qt::NoPen);
        painter.setBrush(background);
        painter.drawRoundedRect(plate, radius, radius);
    }
    const KSkin::Color color = !isEnabled() ? KSkin::Color::TextDisabled
        : hovered                           ? m_hoverForeground
                                            : KSkin::Color::Text;
    const int side = KLiteStyle::dpiScaled(m_glyphSize);
    const QRect glyph(QPoint((width() - side) / 2, (height() - side) / 2), QSize(side, side));
    painter.drawPixmap(
        glyph.topLeft(), zel::tintedPixmap(m_icon, glyph.size(), devicePixelRatioF(), KSkin::color(color)));
    zel::paintFocusRing(&painter, this, plate, radius);
}
