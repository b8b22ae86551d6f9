#include "lists/ui/dragcard.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "lists/ui/rowicon.h"
#include "widgets/filedrag.h"
#include "widgets/nametext.h"
#include "widgets/rowpaint.h"

#include <QPainter>

QPixmap zel::dragCard(const ListRow &row, int count, const RowFonts &fonts, qreal ratio)
{
    const int margin = KLiteStyle::dpiScaled(look::SpaceS);
    const int bubble = fonts.sizes.badgeHeight;
    const int icon = fonts.sizes.iconSize;
    const QString name = elidedName(row.name, fonts.nameMetrics, KLiteStyle::dpiScaled(220));
    const int nameWidth = fonts.nameMetrics.horizontalAdvance(name) + 1;
    const QRect card(0, bubble / 2, 3 * margin + icon + nameWidth, 2 * margin + icon);
    const QSize size(card.width() + bubble / 2, card.bottom() + 1);

    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(KSkin::color(KSkin::Color::Border));
    painter.setBrush(KSkin::color(KSkin::Color::Surface));
    const qreal radius = KLiteStyle::dpiScaledF(look::Radius);
    painter.drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    const QRect iconRect(card.left() + margin, card.top() + margin, icon, icon);
    paintFileIcon(&painter, iconRect, row.fileName, row.picture, false);
    painter.setFont(fonts.name);
    painter.setPen(KSkin::color(KSkin::Color::Text));
    paintTextLine(&painter, card.adjusted(2 * margin + icon, 0, 0, 0), fonts.nameMetrics, name);
    painter.setFont(fonts.small);
    if (count > 1)
        paintDragCount(&painter, {size.width(), 0}, bubble, count);
    return pixmap;
}
