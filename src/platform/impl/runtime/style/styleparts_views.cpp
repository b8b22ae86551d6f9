#include "styleparts.h"

#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QStyleOption>

namespace zel::style {
namespace {

using Color = KSkin::Color;

bool isUpright(QTabBar::Shape shape)
{
    return shape == QTabBar::RoundedWest || shape == QTabBar::RoundedEast || shape == QTabBar::TriangularWest
        || shape == QTabBar::TriangularEast;
}

} // namespace

void drawItemPanel(const QStyleOption &option, QPainter *painter, const QWidget *)
{
    const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(&option);
    if (item && item->backgroundBrush.style() != Qt::NoBrush)
        painter->fillRect(option.rect, item->backgroundBrush);
    const bool enabled = option.state & QStyle::State_Enabled;
    const qreal radius = KLiteStyle::dpiScaledF(look::RadiusSmall);
    if (option.state & QStyle::State_Selected) {
        fillRounded(painter, option.rect, radius, KSkin::color(Color::Selected));
        strokeInHighContrast(painter, option.rect, radius);
    } else if (enabled && (option.state & QStyle::State_MouseOver))
        fillRounded(painter, option.rect, radius, KSkin::color(Color::Hover));
}

void drawTab(const QStyleOptionTab &option, QPainter *painter)
{
    const bool selected = option.state & QStyle::State_Selected;
    const QRect inner = option.rect.adjusted(2, 2, -2, isUpright(option.shape) ? -2 : -4);
    if (!selected)
        fillRounded(painter, inner, KLiteStyle::dpiScaledF(look::Radius), overlayFor(option));
    if (selected) {
        const int thickness = KLiteStyle::dpiScaled(2);
        const int inset = KLiteStyle::dpiScaled(10);
        QRectF mark(option.rect);
        if (isUpright(option.shape))
            mark.adjust(mark.width() - thickness, inset, 0, -inset);
        else
            mark.adjust(inset, mark.height() - thickness, -inset, 0);
        fillRounded(painter, mark, thickness / 2.0, KSkin::color(Color::Accent));
    }
    if (showsKeyboardFocus(option))
        drawFocusRing(painter, inner, KLiteStyle::dpiScaledF(look::Radius), KSkin::color(Color::Accent));
}

void drawHeaderSection(const QStyleOption &option, QPainter *painter)
{
    painter->fillRect(option.rect, option.palette.brush(QPalette::Base));
    painter->fillRect(option.rect, overlayFor(option));
    const QRect &r = option.rect;
    const QColor border = KSkin::color(Color::Border);
    painter->fillRect(QRect(r.left(), r.bottom(), r.width(), 1), border);
}

void drawFrame(const QStyleOption &option, QPainter *painter)
{
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(KSkin::color(Color::Border));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void drawBranch(const QStyleOption &option, QPainter *painter)
{
    if (!(option.state & QStyle::State_Children))
        return;
    const Qt::ArrowType closed = option.direction == Qt::RightToLeft ? Qt::LeftArrow : Qt::RightArrow;
    drawChevron(painter, option.rect, option.state & QStyle::State_Open ? Qt::DownArrow : closed,
        textColor(option, Color::TextSecondary));
}

void drawRule(const QStyleOptionFrame &option, QPainter *painter)
{
    QRect line = option.rect;
    const QPoint middle = line.center();
    if (option.frameShape == QFrame::HLine)
        line = QRect(line.left(), middle.y(), line.width(), 1);
    else
        line = QRect(middle.x(), line.top(), 1, line.height());
    painter->fillRect(line, KSkin::color(Color::Border));
}

void drawTip(const QStyleOption &option, QPainter *painter)
{
    painter->fillRect(option.rect, option.palette.brush(QPalette::ToolTipBase));
    painter->save();
    QColor edge = option.palette.color(QPalette::ToolTipText);
    edge.setAlphaF(0.16);
    painter->setPen(edge);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

} // namespace zel::style
