#pragma once

#include <QObject>

class RecentSortFilterModel;
class SelectionSum;
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
    void show();

    const RecentSortFilterModel *m_rows;
    ZelBoxRecentFileTitleWidget *m_title;
    SelectionSum *m_sum;
};
