#pragma once

#include <QObject>
#include <QTimer>

class RecentSortFilterModel;
class ZelBoxRecentFileListView;
class ZelBoxRecentFileTitleWidget;

/// How many documents the Recent page lists, how many of them are selected and how large these are, for its
/// header. GUI thread; child of the view.
class RecentCounts : public QObject
{
    Q_OBJECT
public:
    /// All outlive it; `rows` is the view's model and has its source.
    RecentCounts(const RecentSortFilterModel *rows, ZelBoxRecentFileListView *view,
        ZelBoxRecentFileTitleWidget *title);

private:
    void countSelected();
    void show();

    const RecentSortFilterModel *m_rows;
    ZelBoxRecentFileListView *m_view;
    ZelBoxRecentFileTitleWidget *m_title;
    QTimer m_soon;
    int m_selected = 0;
    qint64 m_bytes = 0;
};
