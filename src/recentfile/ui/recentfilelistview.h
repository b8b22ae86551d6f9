#pragma once

#include "kthumbnailcache.h"
#include "lists/ui/sectionlistview.h"
#include "recentfile/ui/recentrowtexts.h"

#include <QPointer>

class RecentSortFilterModel;
class ZelBoxRecentFileDelegate;

/// The list of the Recent page: documents with thumbnails, which go as files to other programs, and theirs to
/// the list. GUI thread. Needs a RecentSortFilterModel.
class ZelBoxRecentFileListView : public SectionListView
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileListView(QWidget *parent = nullptr);

    RecentSortFilterModel *recentModel() const;
    void setShownDetail(RecentDetail detail);

Q_SIGNALS:
    void sigCurrentChanged(QModelIndex current, QModelIndex previous);
    void sigShareDoc(QPersistentModelIndex index); ///< the row's share button was clicked
    void moreRequested(const QModelIndex &index, const QPoint &globalPos); ///< its other one
    void filesDropped(const QStringList &localPaths); ///< by another program; perhaps folders, too

protected:
    bool canDrag(const QModelIndex &row) const override;
    std::unique_ptr<QMimeData> dragData(const QModelIndexList &rows) const override;
    bool acceptDrop(QDropEvent *event, const QModelIndex &row) override;
    void dropInto(const QModelIndex &row, QDropEvent *event) override;

    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void onButtonClicked(const QModelIndex &row, int button, const QPoint &below);
    void refreshDay();
    void followThumbnails();
    void onThumbnailLoaded(const QString &path);

    ZelBoxRecentFileDelegate *m_delegate;
    QPointer<KThumbnailCache> m_thumbnails;
    bool m_mayDrop = false; // what is dragged at present
};
