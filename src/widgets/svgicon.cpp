#include "widgets/svgicon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace zel {
namespace {

class TintedIconEngine final : public QIconEngine
{
public:
    TintedIconEngine(const QString &path, KSkin::Color color) : m_path(path), m_color(color) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect.topLeft(), tintedPixmap(m_path, rect.size(), ratio, colorFor(mode)));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return tintedPixmap(m_path, size, 1.0, colorFor(mode));
    }

    QIconEngine *clone() const override { return new TintedIconEngine(*this); }

private:
    QColor colorFor(QIcon::Mode mode) const
    {
        return KSkin::color(mode == QIcon::Disabled ? KSkin::Color::TextDisabled : m_color);
    }

    QString m_path;
    KSkin::Color m_color;
};

} // namespace

QIcon tintedIcon(const QString &resourcePath, KSkin::Color color)
{
    return QIcon(new TintedIconEngine(resourcePath, color));
}

QPixmap tintedPixmap(const QString &resourcePath, const QSize &size, qreal ratio, const QColor &color)
{
    const QString key = QStringLiteral("zel:%1:%2x%3@%4:%5")
                            .arg(resourcePath, QString::number(size.width()), QString::number(size.height()),
                                QString::number(ratio), color.name(QColor::HexArgb));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(resourcePath);
    if (renderer.isValid()) {
        QPainter painter(&pixmap);
        renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRect(QPoint(), size), color);
    }
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace zel
