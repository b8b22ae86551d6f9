#include "recentfile/ui/recentfilelistview.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "widgets/filedrag.h"

#include <QDropEvent>
#include <QMimeData>

using View = ZelBoxRecentFileListView;
using Model = ZelBoxRecentFileModel;

ZelBoxRecentFileListView::ZelBoxRecentFileListView(QWidget *parent)
    : SectionListView(parent), m_delegate(new ZelBoxRecentFileDelegate(this))
{
    setItemDelegate(m_delegate);
    setDragEnabled(true);
    setAcceptDrops(true);
    setAccessibleName(tr("Recent files"));
    connect(this, &View::buttonClicked, this, &View::onButtonClicked);
    connect(this, &View::userReturned, this, &View::refreshDay);
}

RecentSortFilterModel *View::recentModel() const
{
    return qobject_cast<RecentSortFilterModel *>(listModel());
}

void View::setShownDetail(RecentDetail detail)
{
    m_delegate->setShownDetail(detail);
    viewport()->update();
}

void View::onButtonClicked(const QModelIndex &row, int button, const QPoint &below)
{
    if (button == RecentButton::Share)
        Q_EMIT sigShareDoc(row);
    else
        Q_EMIT moreRequested(row, below);
}

void View::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    SectionListView::currentChanged(current, previous);
    Q_EMIT sigCurrentChanged(current, previous);
}

// While the machine was asleep, a day may have begun unnoticed.
void View::refreshDay()
{
    if (recentModel() && recentModel()->recentModel())
        recentModel()->recentModel()->refreshDay();
}

// What the list knows decides: to look at every file would hang on a server that does not answer.
bool View::canDrag(const QModelIndex &row) const
{
    return !row.data(Model::PathRole).toString().isEmpty()
        && row.data(Model::PresenceRole).toInt() != int(RecentFileInfo::Presence::Missing);
}

std::unique_ptr<QMimeData> View::dragData(const QModelIndexList &rows) const
{
    QStringList paths;
    for (const QModelIndex &row : rows)
        paths << row.data(Model::PathRole).toString();
    return zel::fileMimeData(paths);
}

// What is dragged is looked at when it comes and when it falls; a long list is not read again at every step.
bool View::acceptDrop(QDropEvent *event, const QModelIndex &)
{
    if (event->type() != QEvent::DragMove)
        m_mayDrop = !event->source() && zel::offersFiles(event);
    if (!m_mayDrop)
        return false;
    event->setDropAction(event->possibleActions() & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
    event->accept();
    return true;
}

void View::dropInto(const QModelIndex &, QDropEvent *event)
{
    Q_EMIT filesDropped(zel::localFiles(event->mimeData()));
}

void View::paintEvent(QPaintEvent *event)
{
    followThumbnails();
    SectionListView::paintEvent(event);
}

// At the first painting, because nothing of it is needed before.
void View::followThumbnails()
{
    KThumbnailCache *cache = KThumbnailCache::instance();
    if (m_thumbnails == cache)
        return;
    if (m_thumbnails)
        m_thumbnails->disconnect(this);
    m_thumbnails = cache;
    if (cache)
        connect(cache, &KThumbnailCache::loaded, this, &View::onThumbnailLoaded);
}

void View::onThumbnailLoaded(const QString &path)
{
    const auto [first, last] = visibleRows();
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = listModel()->index(row);
        if (index.data(Model::PathRole).toString() == path)
            updateRow(index);
    }
}
