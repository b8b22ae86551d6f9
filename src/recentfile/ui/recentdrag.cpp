#include "recentfile/ui/recentdrag.h"

#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/ui/recentrowpainter.h"
#include "widgets/filedrag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

namespace zel::recent {

namespace {

constexpr int MostTextPaths = 1000; // as text the list is for a person to read

void paintCard(QPainter *painter, const QRectF &card)
{
    painter->setPen(KSkin::color(KSkin::Color::Border));
    painter->setBrush(KSkin::color(KSkin::Color::Surface));
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter->drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace

std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths)
{
    if (paths.isEmpty())
        return nullptr;
    QList<QUrl> urls;
    urls.reserve(paths.size());
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    auto data = std::make_unique<QMimeData>();
    data->setUrls(urls);
    data->setText(QStringList(paths.mid(0, MostTextPaths)).join(QLatin1Char('\n')));
    return data;
}

QPixmap dragPixmap(RecentRow row, int count, const QFont &font, qreal ratio)
{
    const RecentRowFonts fonts(font);
    const int margin = KLiteStyle::dpiScaled(8);
    const int bubble = fonts.cell.badgeHeight;
    const int icon = fonts.cell.iconSize;
    row.name = elidedName(row.fileName, fonts.nameMetrics, KLiteStyle::dpiScaled(220));
    const int nameWidth = fonts.nameMetrics.horizontalAdvance(row.name) + 1;
    const QRect card(0, bubble / 2, 3 * margin + icon + nameWidth, 2 * margin + icon);
    const QSize size(card.width() + bubble / 2, card.bottom() + 1);

    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCard(&painter, card);
    paintFileIcon(&painter, QRect(card.left() + margin, card.top() + margin, icon, icon), row);
    painter.setFont(fonts.name);
    painter.setPen(KSkin::color(KSkin::Color::Text));
    painter.drawText(
        card.adjusted(2 * margin + icon, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine, row.name);
    painter.setFont(fonts.small);
    if (count > 1)
        paintDragCount(&painter, {size.width(), 0}, bubble, count);
    return pixmap;
}

// A source that offers to move only would delete the files once we have "taken" them.
bool isAcceptable(const QDropEvent *event)
{
    const bool keepsFiles = event->possibleActions() & (Qt::CopyAction | Qt::LinkAction);
    return !event->source() && keepsFiles && !localFiles(event->mimeData()).isEmpty();
}

} // namespace zel::recent
