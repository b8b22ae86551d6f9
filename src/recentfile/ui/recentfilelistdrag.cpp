// Files dragged out of the recent list and dropped into it.
#include "recentfile/recentfilemodel.h"
#include "recentfile/ui/recentdrag.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"
#include "widgets/filedrag.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>

using View = ZelBoxRecentFileListView;
using Model = ZelBoxRecentFileModel;

namespace {

// What the list knows decides: to look at every file would hang on a server that does not answer.
bool canGo(const QModelIndex &row)
{
    return !row.data(Model::PathRole).toString().isEmpty()
        && row.data(Model::PresenceRole).toInt() != int(RecentFileInfo::Presence::Missing);
}

} // namespace

std::unique_ptr<QMimeData> View::dragData() const
{
    QStringList paths;
    const QModelIndexList rows = selectedRows();
    for (const QModelIndex &row : rows) {
        if (canGo(row))
            paths << row.data(Model::PathRole).toString();
    }
    return zel::recent::fileMimeData(paths);
}

void View::startDrag(Qt::DropActions actions)
{
    std::unique_ptr<QMimeData> files = dragData();
    if (!files)
        return;
    const QModelIndexList rows = selectedRows();
    const QModelIndex pressed = m_pressed;
    const QModelIndex shown = canGo(pressed) ? pressed : *std::find_if(rows.cbegin(), rows.cend(), canGo);

    auto *drag = new QDrag(this); // deletes itself
    drag->setPixmap(rowDelegate()->dragPixmap(shown, files->urls().size(), font(), devicePixelRatioF()));
    drag->setHotSpot({-12, -8}); // beside the pointer, so that it hides no drop target
    drag->setMimeData(files.release());
    drag->exec(actions, Qt::CopyAction);
}

void View::dragEnterEvent(QDragEnterEvent *event)
{
    setDropFrame(zel::recent::isAcceptable(event));
    dragMoveEvent(event);
}

// What is dragged was looked at when it came; a long list is not read again at every step.
void View::dragMoveEvent(QDragMoveEvent *event)
{
    if (!m_dropFrame) {
        event->ignore();
        return;
    }
    event->setDropAction(event->possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
    event->accept();
}

void View::dragLeaveEvent(QDragLeaveEvent *event)
{
    setDropFrame(false);
    event->accept();
}

void View::dropEvent(QDropEvent *event)
{
    setDropFrame(false);
    if (!zel::recent::isAcceptable(event)) {
        event->ignore();
        return;
    }
    event->setDropAction(event->possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
    event->accept();
    Q_EMIT sigFilesDropped(zel::localFiles(event->mimeData()));
}

void View::setDropFrame(bool shown)
{
    if (std::exchange(m_dropFrame, shown) != shown)
        viewport()->update();
}
