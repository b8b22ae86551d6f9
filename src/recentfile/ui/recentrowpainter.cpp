#include "recentfile/ui/recentrowpainter.h"

#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "kthumbnailcache.h"
#include "widgets/rowpaint.h"

#include <QPainter>
#include <QPixmapCache>

namespace zel::recent {

namespace {

using Button = RecentCell::Button;

// On the ground of a selected row the text would be too weak.
void paintBadge(QPainter *painter, const QRect &rect, const RecentRowFonts &fonts, const RecentRow &row,
    const RecentRowOption &option)
{
    const QColor color = KSkin::color(row.missing ? KSkin::Color::TextSecondary : KSkin::Color::Accent);
    QColor tint = color;
    tint.setAlphaF(look::SoftTint);
    const qreal radius = rect.height() / 2.0;
    painter->setPen(Qt::NoPen);
    painter->setBrush(KSkin::color(KSkin::Color::Surface));
    if (option.state.testFlag(QStyle::State_Selected))
        painter->drawRoundedRect(rect, radius, radius);
    painter->setBrush(tint);
    painter->drawRoundedRect(rect, radius, radius);
    painter->setPen(color);
    paintTextLine(painter, rect.adjusted(fonts.cell.badgePadding, 0, 0, 0), fonts.smallMetrics, row.badge);
}

void paintButton(QPainter *painter, const QRect &rect, Button button, const RecentRowOption &option)
{
    const bool hovered = option.hovered == button;
    if (hovered)
        paintButtonVeil(painter, rect, option.pressed == button);
    const int side = KLiteStyle::dpiScaled(16);
    QRect glyph(0, 0, side, side);
    glyph.moveCenter(rect.center());
    const QString icon = button == Button::Share ? QStringLiteral(":/icons_svg/share.svg")
                                                 : QStringLiteral(":/icons_svg/more.svg");
    paintGlyph(
        painter, glyph, icon, KSkin::color(hovered ? KSkin::Color::Text : KSkin::Color::TextSecondary));
}

/// `image` with round corners and a hairline around it, which sets a white page off from a white ground.
QPixmap framed(const QImage &image, qreal ratio)
{
    const QString key = QStringLiteral("zel:thumbnail:%1@%2:%3")
                            .arg(QString::number(image.cacheKey()), QString::number(ratio),
                                KSkin::isDark() ? QStringLiteral("d") : QStringLiteral("l"));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(image.size());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(image);
    QColor line = KSkin::color(KSkin::Color::Text);
    line.setAlphaF(0.18);
    painter.setPen(QPen(line, ratio));
    const qreal radius = KLiteStyle::dpiScaledF(4) * ratio;
    const qreal half = ratio / 2;
    painter.drawRoundedRect(QRectF(pixmap.rect()).adjusted(half, half, -half, -half), radius, radius);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QImage thumbnailOf(const RecentRow &row, int pixels)
{
    KThumbnailCache *cache = KThumbnailCache::instance();
    return cache && !row.path.isEmpty() && !row.missing ? cache->thumbnail(row.path, pixels) : QImage();
}

void paintTexts(QPainter *painter, const RecentRow &row, const RecentCell &cell, const RecentRowFonts &fonts,
    const RecentRowOption &option)
{
    const QColor quiet = KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::TextSecondary);
    painter->setFont(fonts.name);
    painter->setPen(KSkin::color(row.missing ? KSkin::Color::TextDisabled : KSkin::Color::Text));
    paintTextLine(painter, cell.name, fonts.nameMetrics, row.name);

    painter->setFont(fonts.small);
    painter->setPen(quiet);
    paintTextLine(painter, cell.folder, fonts.smallMetrics, row.folder);
    if (!cell.detail.isNull())
        paintTextLine(painter, cell.detail, fonts.smallMetrics, row.detail);
    if (!cell.time.isNull())
        paintTextLine(painter, cell.time, fonts.smallMetrics, row.time);
    if (!cell.pin.isNull())
        paintGlyph(painter, cell.pin, QStringLiteral(":/icons_svg/row_pin.svg"), quiet);
    if (!cell.cloud.isNull())
        paintGlyph(painter, cell.cloud, QStringLiteral(":/icons_svg/row_cloud.svg"), quiet);
    if (!cell.badge.isNull())
        paintBadge(painter, cell.badge, fonts, row, option);
}

} // namespace

void paintFileIcon(QPainter *painter, const QRect &rect, const RecentRow &row)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QImage image = thumbnailOf(row, qRound(rect.width() * ratio));
    if (image.isNull()) {
        const QIcon icon = KFileIconProvider::instance()->icon(row.fileName);
        icon.paint(painter, rect, Qt::AlignCenter, row.missing ? QIcon::Disabled : QIcon::Normal);
        return;
    }
    const QPixmap pixmap = framed(image, ratio);
    const QSizeF size = QSizeF(pixmap.size()) / ratio;
    const qreal x = rect.x() + (rect.width() - size.width()) / 2;
    const qreal y = rect.y() + (rect.height() - size.height()) / 2;
    painter->drawPixmap(QPointF(qRound(x * ratio), qRound(y * ratio)) / ratio, pixmap);
}

void paintRow(QPainter *painter, const RecentRow &row, const RecentCell &cell, const RecentRowFonts &fonts,
    const RecentRowOption &option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintRowGround(painter, cell.ground, option);
    paintFileIcon(painter, cell.icon, row);
    paintTexts(painter, row, cell, fonts, option);
    for (const Button button : {Button::Share, Button::More}) {
        if (const QRect rect = cell.rectOf(button); !rect.isNull())
            paintButton(painter, rect, button, option);
    }
    painter->restore();
}

} // namespace zel::recent
