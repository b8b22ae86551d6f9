#include "clouddoc/ui/clouddrag.h"

#include "widgets/filedrag.h"

#include <QDropEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>

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
    if (!localPaths.isEmpty() && !items.cut)
        setFiles(data.get(), localPaths);
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

// Within the drive it is a move, but nobody is offered one: file managers would take the files out of the
// drive. And a source that offers to move only would delete its files once we have "taken" them.
bool acceptDrag(QDropEvent *event, const QString &folderId)
{
    const auto &[data, items, files] = dragged(event);
    const bool moves = !items.ids.isEmpty() && items.folderId != folderId && !items.ids.contains(folderId);
    if (!event->possibleActions().testFlag(Qt::CopyAction) || (!moves && !files))
        return false;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    return true;
}

} // namespace zel::clouddoc
