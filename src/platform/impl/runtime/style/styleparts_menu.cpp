#include "styleparts.h"

#include "klitestyle.h"
#include "stylepaint.h"

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>

namespace zel::style {
namespace {

constexpr int SeparatorHeight = 9;
constexpr int Padding = look::SpaceM; // from the menu's edge to icon or text
constexpr int IconGap = 10;           // between icon and text
constexpr int ArrowColumn = 24;       // for the arrow of a submenu

int iconColumn(const QStyleOptionMenuItem &option)
{
    const bool anyMark = option.menuHasCheckableItems;
    const int width = qMax(option.maxIconWidth > 4 ? KLiteStyle::dpiScaled(look::Glyph) : 0,
        anyMark ? KLiteStyle::dpiScaled(look::Glyph) : 0);
    return width > 0 ? width + KLiteStyle::dpiScaled(IconGap) : 0;
}

void drawSeparator(const QStyleOptionMenuItem &option, QPainter *painter)
{
    const int y = option.rect.center().y();
    const int inset = KLiteStyle::dpiScaled(Padding);
    painter->fillRect(QRect(option.rect.left() + inset, y, option.rect.width() - 2 * inset, 1),
        KSkin::color(KSkin::Color::Border));
}

void drawSectionTitle(const QStyleOptionMenuItem &option, QPainter *painter)
{
    painter->save();
    painter->setPen(KSkin::color(KSkin::Color::TextSecondary));
    painter->setFont(option.font);
    const int inset = KLiteStyle::dpiScaled(Padding);
    painter->drawText(
        option.rect.adjusted(inset, 0, -inset, 0), Qt::AlignVCenter | Qt::TextSingleLine, option.text);
    painter->restore();
}

void drawMark(const QStyleOptionMenuItem &option, QPainter *painter, const QRect &cell)
{
    const bool hasIcon = !option.icon.isNull();
    if (option.checked && hasIcon)
        fillRounded(painter, cell.adjusted(-3, -3, 3, 3), KLiteStyle::dpiScaledF(look::RadiusSmall),
            KSkin::color(KSkin::Color::Selected));
    if (hasIcon) {
        const QIcon::Mode mode = option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
        option.icon.paint(painter, cell, Qt::AlignCenter, mode, option.checked ? QIcon::On : QIcon::Off);
        return;
    }
    if (!option.checked)
        return;
    if (option.checkType == QStyleOptionMenuItem::Exclusive) {
        const QRectF dot = QRectF(QPointF(), QSizeF(cell.size()) * 0.4).translated(QRectF(cell).center());
        fillRounded(
            painter, dot.translated(-dot.width() / 2, -dot.height() / 2), dot.width() / 2, textColor(option));
    } else {
        drawTick(painter, QRectF(cell), textColor(option));
    }
}

void drawTexts(const QProxyStyle &style, const QStyleOptionMenuItem &option, QPainter *painter,
    const QWidget *w, const QRect &rect)
{
    int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
    flags |= style.styleHint(QStyle::SH_UnderlineShortcut, &option, w) ? Qt::TextShowMnemonic
                                                                       : Qt::TextHideMnemonic;
    const QString text = option.text.section(QLatin1Char('\t'), 0, 0);
    const QString shortcut = option.text.section(QLatin1Char('\t'), 1);
    painter->setFont(option.font);
    painter->setPen(textColor(option));
    const QRect visual = QStyle::visualRect(option.direction, option.rect, rect);
    painter->drawText(visual, flags | int(QStyle::visualAlignment(option.direction, Qt::AlignLeft)), text);
    if (shortcut.isEmpty())
        return;
    painter->setPen(textColor(option, KSkin::Color::TextSecondary));
    painter->drawText(
        visual, flags | int(QStyle::visualAlignment(option.direction, Qt::AlignRight)), shortcut);
}

} // namespace

void drawMenuItem(
    const QProxyStyle &style, const QStyleOptionMenuItem &option, QPainter *painter, const QWidget *w)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        option.text.isEmpty() ? drawSeparator(option, painter) : drawSectionTitle(option, painter);
        return;
    }
    painter->save();
    const bool chosen = (option.state & QStyle::State_Selected) && (option.state & QStyle::State_Enabled);
    if (chosen) {
        const qreal radius = KLiteStyle::dpiScaledF(look::RadiusSmall);
        fillRounded(painter, option.rect, radius, overlay(0.08));
        strokeInHighContrast(painter, option.rect, radius);
    }

    const int padding = KLiteStyle::dpiScaled(Padding);
    const int side = KLiteStyle::dpiScaled(look::Glyph);
    const int column = iconColumn(option);
    const QRect cell(
        option.rect.left() + padding, option.rect.top() + (option.rect.height() - side) / 2, side, side);
    if (column > 0)
        drawMark(option, painter, QStyle::visualRect(option.direction, option.rect, cell));

    const int arrow = KLiteStyle::dpiScaled(ArrowColumn);
    const bool submenu = option.menuItemType == QStyleOptionMenuItem::SubMenu;
    drawTexts(
        style, option, painter, w, option.rect.adjusted(padding + column, 0, submenu ? -arrow : -padding, 0));
    if (submenu) {
        const QRect place(option.rect.right() - arrow, option.rect.top(), arrow, option.rect.height());
        const bool leftward = option.direction == Qt::RightToLeft;
        drawChevron(painter, QStyle::visualRect(option.direction, option.rect, place),
            leftward ? Qt::LeftArrow : Qt::RightArrow, textColor(option, KSkin::Color::TextSecondary));
    }
    painter->restore();
}

QSize menuItemSize(const QStyleOptionMenuItem &option, const QSize &contents)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator && option.text.isEmpty())
        return {KLiteStyle::dpiScaled(2 * Padding), KLiteStyle::dpiScaled(SeparatorHeight)};
    const bool hasShortcut = option.text.contains(QLatin1Char('\t'));
    const int width = contents.width() + iconColumn(option) + KLiteStyle::dpiScaled(Padding + ArrowColumn)
        + (hasShortcut ? KLiteStyle::dpiScaled(Padding) : 0);
    return {width, qMax(contents.height(), KLiteStyle::dpiScaled(look::ControlHeight))};
}

} // namespace zel::style
