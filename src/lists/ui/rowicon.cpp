#include "lists/ui/rowicon.h"

#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"
#include "kthumbnailcache.h"

#include <QPainter>
#include <QPixmapCache>

namespace zel {
namespace {

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
    const qreal radius = KLiteStyle::dpiScaledF(look::RadiusSmall) * ratio;
    const qreal half = ratio / 2;
    painter.drawRoundedRect(QRectF(pixmap.rect()).adjusted(half, half, -half, -half), radius, radius);
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QImage thumbnailOf(const QString &path, int pixels)
{
    KThumbnailCache *cache = path.isEmpty() ? nullptr : KThumbnailCache::instance();
    return cache ? cache->thumbnail(path, pixels) : QImage();
}

} // namespace

void paintFileIcon(
    QPainter *painter, const QRect &rect, const QString &fileName, const QString &picture, bool disabled)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QImage image = thumbnailOf(picture, qRound(rect.width() * ratio));
    if (image.isNull()) {
        const QIcon icon = KFileIconProvider::instance()->icon(fileName);
        icon.paint(painter, rect, Qt::AlignCenter, disabled ? QIcon::Disabled : QIcon::Normal);
        return;
    }
    const QPixmap pixmap = framed(image, ratio);
    const QSizeF size = QSizeF(pixmap.size()) / ratio;
    const qreal x = rect.x() + (rect.width() - size.width()) / 2;
    const qreal y = rect.y() + (rect.height() - size.height()) / 2;
    painter->drawPixmap(QPointF(qRound(x * ratio), qRound(y * ratio)) / ratio, pixmap);
}

} // namespace zel
