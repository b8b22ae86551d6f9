#include "lists/ui/selectionsum.h"

#include "lists/ui/sectionlistview.h"

#include <utility>

static constexpr int MostAtOnce = 1000; // beyond it, counting waits for a pause
static constexpr int PauseMs = 100;

SelectionSum::SelectionSum(SectionListView *view, std::function<qint64(int row)> sizeOf)
    : QObject(view), m_view(view), m_sizeOf(std::move(sizeOf))
{
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &SelectionSum::count);
    connect(m_view, &SectionListView::selectedRowsChanged, this, &SelectionSum::countSoon);
}

void SelectionSum::countSoon()
{
    if (!m_soon.isActive())
        m_soon.start(m_view->selectedCount() > MostAtOnce ? PauseMs : 0);
}

void SelectionSum::count()
{
    m_selected = 0;
    m_bytes = 0;
    const QItemSelection ranges = m_view->selectionModel()->selection();
    for (const QItemSelectionRange &range : ranges) {
        m_selected += range.height();
        for (int row = range.top(); row <= range.bottom(); ++row)
            m_bytes += qMax<qint64>(m_sizeOf(row), 0);
    }
    Q_EMIT counted();
}
