// Items dragged out of the cloud list; files and items dropped into it.
#include "clouddoc/clouddocmodel.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/clouddrag.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>

using View = CloudDocListView;
using namespace zel::clouddoc;

void View::startDrag(Qt::DropActions)
{
    CarriedItems items{m_folderId, selectedIds()};
    if (items.ids.isEmpty())
        return;
    QStringList paths;
    for (const QString &id : std::as_const(items.ids)) {
        const CloudDocument *document = m_documents->find(id);
        if (document && !document->localPath.isEmpty())
            paths << document->localPath;
    }
    const QModelIndex shown = currentIndex().isValid() ? currentIndex() : indexAt({0, 0});
    auto *drag = new QDrag(this); // deletes itself
    drag->setPixmap(m_delegate->dragPixmap(shown, items.ids.size(), font(), devicePixelRatioF()));
    drag->setHotSpot({-12, -8}); // beside the pointer, so that it hides no drop target
    drag->setMimeData(itemsMimeData(items, paths).release());
    // Other programs get copies, unless the user asks for a move; within the drive it is always one.
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

QModelIndex View::dropRow(const QPoint &pos) const
{
    const QModelIndex index = indexAt(pos);
    return index.data(CloudDocModel::FolderRole).toBool() ? index : QModelIndex();
}

void View::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
    event->setAccepted(true); // else no move would follow, and a folder may come under the pointer
}

void View::dragMoveEvent(QDragMoveEvent *event)
{
    const QModelIndex folder = dropRow(event->pos());
    const QString id = folder.data(CloudDocModel::IdRole).toString();
    if (folder.isValid() && acceptDrag(event, id)) {
        setDropTarget(folder, false);
    } else if (acceptDrag(event, m_folderId)) {
        setDropTarget({}, true);
    } else {
        setDropTarget({}, false);
        event->ignore();
    }
    startAutoScroll();
}

void View::dragLeaveEvent(QDragLeaveEvent *event)
{
    stopAutoScroll();
    setDropTarget({}, false);
    event->accept();
}

void View::dropEvent(QDropEvent *event)
{
    stopAutoScroll();
    const QModelIndex folder = dropRow(event->pos());
    QString target = folder.data(CloudDocModel::IdRole).toString();
    setDropTarget({}, false);
    setState(NoState);
    if (!folder.isValid() || !acceptDrag(event, target)) {
        target = m_folderId;
        if (!acceptDrag(event, target))
            return event->ignore();
    }
    const QStringList ids = itemsOf(event->mimeData()).ids;
    if (ids.isEmpty())
        Q_EMIT sigFilesDropped(target, localFiles(event->mimeData()));
    else
        Q_EMIT sigItemsDropped(target, ids);
}

void View::setDropTarget(const QModelIndex &folder, bool whole)
{
    if (m_dropRow == folder && m_dropWhole == whole)
        return;
    m_dropRow = folder;
    m_dropWhole = whole;
    m_delegate->setDropTarget(folder.data(CloudDocModel::IdRole).toString());
    viewport()->update();
}
