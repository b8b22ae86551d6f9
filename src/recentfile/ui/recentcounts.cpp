#include "recentfile/ui/recentcounts.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfiletitlewidget.h"

static constexpr int MostAtOnce = 1000; // beyond it, counting waits for a pause
static constexpr int PauseMs = 100;

RecentCounts::RecentCounts(
    const RecentSortFilterModel *rows, ZelBoxRecentFileListView *view, ZelBoxRecentFileTitleWidget *title)
    : QObject(view), m_rows(rows), m_view(view), m_title(title)
{
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &RecentCounts::countSelected);
    connect(m_rows, &RecentSortFilterModel::countsChanged, this, &RecentCounts::show);
    connect(m_view, &SectionListView::selectedRowsChanged, this, [this] {
        if (!m_soon.isActive())
            m_soon.start(m_view->selectedCount() > MostAtOnce ? PauseMs : 0);
    });
}

void RecentCounts::countSelected()
{
    m_selected = 0;
    m_bytes = 0;
    const QItemSelection ranges = m_view->selectionModel()->selection();
    for (const QItemSelectionRange &range : ranges) {
        m_selected += range.height();
        for (int row = range.top(); row <= range.bottom(); ++row)
            m_bytes += qMax<qint64>(m_rows->record(row).size, 0);
    }
    show();
}

void RecentCounts::show()
{
    const bool isEmpty = m_rows->recentModel()->rowCount() == 0;
    m_title->setCounts(isEmpty ? -1 : m_rows->rowCount(), m_selected, m_bytes);
}
