#include "recentfile/ui/recentcounts.h"

#include "lists/ui/selectionsum.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfiletitlewidget.h"

RecentCounts::RecentCounts(
    const RecentSortFilterModel *rows, ZelBoxRecentFileListView *view, ZelBoxRecentFileTitleWidget *title)
    : QObject(view),
      m_rows(rows),
      m_title(title),
      m_sum(new SelectionSum(view, [rows](int row) { return rows->record(row).size; }))
{
    connect(m_sum, &SelectionSum::counted, this, &RecentCounts::show);
    connect(m_rows, &RecentSortFilterModel::countsChanged, this, &RecentCounts::show);
}

void RecentCounts::show()
{
    const bool isEmpty = m_rows->recentModel()->rowCount() == 0;
    m_title->setCounts(isEmpty ? -1 : m_rows->rowCount(), m_sum->selected(), m_sum->bytes());
}
