#include "recentfile/ui/recentlistmemory.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"

#include <QItemSelectionModel>
#include <algorithm>

namespace zel::recent {

QVector<int> selectedRowNumbers(const QItemSelectionModel &selection)
{
    QVector<int> rows;
    const QItemSelection ranges = selection.selection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows << row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

} // namespace zel::recent

void RecentListMemory::keep(const RecentSortFilterModel &model, const QItemSelectionModel &selection)
{
    m_currentId = selection.currentIndex().data(ZelBoxRecentFileModel::IdRole).toString();
    m_selectedIds.clear();
    const QVector<int> rows = zel::recent::selectedRowNumbers(selection);
    // All that a filter lets through is not all: another one would let through rows that nobody picked.
    m_all = rows.size() > 1 && rows.size() == model.recentModel()->rowCount();
    if (m_all)
        return;
    for (const int row : rows)
        m_selectedIds << model.index(row).data(ZelBoxRecentFileModel::IdRole).toString();
}

QItemSelection RecentListMemory::rowsIn(const RecentSortFilterModel &model) const
{
    if (m_all)
        return {model.index(0), model.index(model.rowCount() - 1)};
    QVector<int> rows;
    for (const QString &id : m_selectedIds) {
        if (const int row = model.rowOf(id); row >= 0)
            rows << row;
    }
    std::sort(rows.begin(), rows.end());
    QItemSelection selection;
    for (int i = 0; i < rows.size();) {
        int end = i + 1;
        while (end < rows.size() && rows.at(end) == rows.at(i) + end - i)
            ++end;
        selection.select(model.index(rows.at(i)), model.index(rows.at(end - 1)));
        i = end;
    }
    return selection;
}

void RecentListMemory::giveBack(const RecentSortFilterModel &model, QItemSelectionModel *selection)
{
    if (const int current = model.rowOf(m_currentId); current >= 0)
        selection->setCurrentIndex(model.index(current), QItemSelectionModel::NoUpdate);
    if (const QItemSelection rows = rowsIn(model); !rows.isEmpty())
        selection->select(rows, QItemSelectionModel::ClearAndSelect);
    *this = {};
}
