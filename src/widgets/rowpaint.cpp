#include "widgets/rowpaint.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "widgets/svgicon.h"

#include <QPainter>
#include <QStyleOption>

namespace zel {
namespace {

void paintEdge(QPainter *painter, const QRectF &ground, qreal radius, KSkin::Color color, qreal width)
{
    const qreal inset = width / 2;
    painter->setPen(QPen(KSkin::color(color), width));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(ground.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
}

} // namespace

void paintRowGround(QPainter *painter, const QRect &ground, const QStyleOption &option)
{
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected || option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(KSkin::color(selected ? KSkin::Color::Selected : KSkin::Color::Hover));
        painter->drawRoundedRect(ground, radius, radius);
        if (selected && KSkin::highContrast()) // the shade of the ground alone would be a weak sign
            paintEdge(painter, ground, radius, KSkin::Color::ControlBorder, 1);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        const qreal width = qMax(look::FocusWidth, KLiteStyle::dpiScaledF(look::FocusWidth));
        paintEdge(painter, ground, radius, KSkin::Color::Accent, width);
    }
}

void paintTextLine(QPainter *painter, const QRect &rect, const QFontMetrics &metrics, const QString &text)
{
    const int top = rect.top() + (rect.height() - metrics.height()) / 2;
    painter->drawText(QPoint(rect.left(), top + metrics.ascent()), text);
}

void paintGlyph(QPainter *painter, const QRect &rect, const QString &icon, const QColor &color)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect.topLeft(), tintedPixmap(icon, rect.size(), ratio, color));
}

// A veil, so that it shows on the ground of a selected row, too.
void paintButtonVeil(QPainter *painter, const QRect &rect, bool pressed)
{
    QColor veil = KSkin::color(KSkin::Color::Text);
    veil.setAlphaF(pressed ? 0.18 : 0.09);
    painter->setPen(Qt::NoPen);
    painter->setBrush(veil);
    const qreal radius = KLiteStyle::dpiScaledF(look::RadiusSmall);
    painter->drawRoundedRect(rect, radius, radius);
}

void paintProgress(QPainter *painter, const QRect &rect, int percent)
{
    QColor ground = KSkin::color(KSkin::Color::Text);
    ground.setAlphaF(0.14);
    const qreal radius = rect.height() / 2.0;
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    painter->drawRoundedRect(rect, radius, radius);
    if (percent <= 0)
        return;
    QRectF done(rect);
    done.setWidth(qMax<qreal>(rect.height(), rect.width() * qMin(percent, 100) / 100.0));
    painter->setBrush(KSkin::color(KSkin::Color::Accent));
    painter->drawRoundedRect(done, radius, radius);
}

// On the ground of a selected row the text would be too weak.
void paintBadge(QPainter *painter, const QRect &rect, const QColor &color, bool selected)
{
    QColor tint = color;
    tint.setAlphaF(look::SoftTint);
    const qreal radius = rect.height() / 2.0;
    painter->setPen(Qt::NoPen);
    painter->setBrush(KSkin::color(KSkin::Color::Surface));
    if (selected)
        painter->drawRoundedRect(rect, radius, radius);
    painter->setBrush(tint);
    painter->drawRoundedRect(rect, radius, radius);
    painter->setPen(color);
}

void paintDropGround(QPainter *painter, const QRect &rect, bool quiet)
{
    const QColor accent = KSkin::color(KSkin::Color::Accent);
    QColor veil = accent;
    veil.setAlphaF(quiet ? 0.05 : 0.12);
    const qreal width = KLiteStyle::dpiScaledF(1.5);
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    painter->setBrush(veil);
    painter->setPen(QPen(accent, width));
    painter->drawRoundedRect(
        QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2), radius, radius);
}

} // namespace zel
