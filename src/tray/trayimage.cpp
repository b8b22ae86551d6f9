#include "tray/trayimage.h"

#include "kskin.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <algorithm>

namespace zel::tray {
namespace {

constexpr int LeastForNumber = 22; // below, digits are specks
constexpr int LeastForTwoDigits = 32;

QFont badgeFont(qreal height)
{
    QFont font;
    font.setPixelSize(std::max(1, qRound(height * 0.78)));
    font.setWeight(QFont::Bold);
    return font;
}

// On whole pixels, so that its edges are as sharp as a circle's can be.
QRectF badgeRect(int size, const QString &text)
{
    if (text.isEmpty()) {
        const int dot = qRound(size * 0.44);
        return {qreal(size - dot), qreal(size - dot), qreal(dot), qreal(dot)};
    }
    const int height = qRound(size * 0.58);
    const qreal wanted = QFontMetricsF(badgeFont(height)).horizontalAdvance(text) + height * 0.36;
    const int width = qRound(std::clamp<qreal>(wanted, height, size));
    return {qreal(size - width), qreal(size - height), qreal(width), qreal(height)};
}

void paintText(QPainter &painter, const QRectF &badge, const QString &text)
{
    QPainterPath shape;
    shape.addText({}, badgeFont(badge.height()), text);
    const QRectF bounds = shape.boundingRect();
    const qreal room = badge.width() - badge.height() * 0.24;
    const qreal scale = std::min<qreal>(1, room / bounds.width());
    painter.save();
    painter.translate(badge.center());
    painter.scale(scale, scale);
    painter.translate(-bounds.center());
    painter.fillPath(shape, KSkin::color(KSkin::Color::OnBadge, false));
    painter.restore();
}

void paintBadge(QPainter &painter, int size, int unread)
{
    const QString text = badgeText(unread, size);
    const QRectF badge = badgeRect(size, text);
    const qreal gap = std::max(1.0, size / 24.0);
    const auto fill = [&](const QRectF &rect, const QColor &color) {
        const qreal radius = rect.height() / 2;
        QPainterPath path;
        path.addRoundedRect(rect, radius, radius);
        painter.fillPath(path, color);
    };
    // A gap in the picture sets the badge off on panels of any colour.
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    fill(badge.adjusted(-gap, -gap, gap, gap), Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    fill(badge, KSkin::color(KSkin::Color::Badge, false));
    if (!text.isEmpty())
        paintText(painter, badge, text);
}

} // namespace

QString badgeText(int unread, int size)
{
    if (unread <= 0 || size < LeastForNumber)
        return {};
    const int most = size < LeastForTwoDigits ? 9 : 99;
    return unread > most ? QString::number(most) + QLatin1Char('+') : QString::number(unread);
}

QImage image(int size, int unread)
{
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(QStringLiteral(":/icons/zelbox.svg")).render(&painter, QRectF(0, 0, size, size));
    if (unread > 0)
        paintBadge(painter, size, unread);
    return picture;
}

} // namespace zel::tray
