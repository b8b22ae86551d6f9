#include "clouddoc/ui/clouddrag.h"

#include "kfileiconprovider.h"
#include "klitestyle.h"
#include "kskin.h"
#include "widgets/filedrag.h"
#include "widgets/nametext.h"
#include "widgets/rowpaint.h"

#include <QDropEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

namespace zel::clouddoc {

namespace {

QString itemsFormat()
{
    return QStringLiteral("application/x-zelbox-cloud-items");
}

} // namespace

std::unique_ptr<QMimeData> itemsMimeData(const CarriedItems &items, const QStringList &localPaths)
{
    const QJsonObject object{{QStringLiteral("folder"), items.folderId}, {QStringLiteral("cut"), items.cut},
        {QStringLiteral("ids"), QJsonArray::fromStringList(items.ids)}};
    auto data = std::make_unique<QMimeData>();
    data->setData(itemsFormat(), QJsonDocument(object).toJson(QJsonDocument::Compact));
    QList<QUrl> urls;
    for (const QString &path : localPaths)
        urls << QUrl::fromLocalFile(path);
    if (!urls.isEmpty() && !items.cut)
        data->setUrls(urls);
    return data;
}

CarriedItems itemsOf(const QMimeData *data)
{
    CarriedItems items;
    if (!data || !data->hasFormat(itemsFormat()))
        return items;
    const QJsonObject object = QJsonDocument::fromJson(data->data(itemsFormat())).object();
    items.folderId = object.value(QLatin1String("folder")).toString();
    items.cut = object.value(QLatin1String("cut")).toBool();
    const QJsonArray ids = object.value(QLatin1String("ids")).toArray();
    for (const auto &id : ids)
        items.ids << id.toString();
    items.ids.removeAll({});
    return items;
}

QStringList localFiles(const QMimeData *data)
{
    return data && data->hasFormat(itemsFormat()) ? QStringList() : zel::localFiles(data);
}

namespace {

struct Dragged
{
    const QMimeData *data = nullptr; // never looked into
    CarriedItems items;
    bool files = false;
};

// Read when the drag comes and when it falls only: each reading waits for the program that it comes from.
const Dragged &dragged(const QDropEvent *event)
{
    static Dragged known;
    if (event->type() != QEvent::DragMove || known.data != event->mimeData())
        known = {event->mimeData(), itemsOf(event->mimeData()), !localFiles(event->mimeData()).isEmpty()};
    return known;
}

} // namespace

// A source that offers to move only would delete the files once we have "taken" them.
bool acceptDrag(QDropEvent *event, const QString &folderId)
{
    const auto &[data, items, files] = dragged(event);
    const bool moves = !items.ids.isEmpty() && items.folderId != folderId && !items.ids.contains(folderId)
        && event->possibleActions().testFlag(Qt::MoveAction);
    const bool copies = event->possibleActions().testFlag(Qt::CopyAction) && files;
    if (!moves && !copies)
        return false;
    event->setDropAction(moves ? Qt::MoveAction : Qt::CopyAction);
    event->accept();
    return true;
}

QPixmap dragPixmap(const QString &name, bool isFolder, int count, const QFont &font, qreal ratio)
{
    const QFontMetrics metrics(font);
    const int margin = KLiteStyle::dpiScaled(8);
    const int bubble = metrics.height();
    const int icon = KLiteStyle::dpiScaled(24);
    const QString text = zel::elidedName(name, metrics, KLiteStyle::dpiScaled(220));
    const QRect card(
        0, bubble / 2, 3 * margin + icon + metrics.horizontalAdvance(text) + 1, 2 * margin + icon);
    const QSize size(card.width() + bubble / 2, card.bottom() + 1);

    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(KSkin::color(KSkin::Color::Border));
    painter.setBrush(KSkin::color(KSkin::Color::Surface));
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter.drawRoundedRect(QRectF(card).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    KFileIconProvider::instance()
        ->icon(isFolder ? name + QLatin1Char('/') : name)
        .paint(&painter, QRect(card.left() + margin, card.top() + margin, icon, icon));
    painter.setFont(font);
    painter.setPen(KSkin::color(KSkin::Color::Text));
    zel::paintTextLine(&painter, card.adjusted(2 * margin + icon, 0, 0, 0), metrics, text);
    if (count > 1)
        paintDragCount(&painter, {size.width(), 0}, bubble, count);
    return pixmap;
}

void paintDropGround(QPainter *painter, const QRect &rect, bool quiet)
{
    const QColor accent = KSkin::color(KSkin::Color::Accent);
    QColor veil = accent;
    veil.setAlphaF(quiet ? 0.05 : 0.12);
    const qreal width = KLiteStyle::dpiScaledF(1.5);
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter->setBrush(veil);
    painter->setPen(QPen(accent, width));
    painter->drawRoundedRect(
        QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2), radius, radius);
}

} // namespace zel::clouddoc
