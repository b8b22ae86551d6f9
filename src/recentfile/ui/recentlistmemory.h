#pragma once

#include <QItemSelection>
#include <QStringList>

class QItemSelectionModel;
class RecentSortFilterModel;

/// What a person had current and selected, by record ids: a reload or a new filter takes all rows away and
/// brings most of them back at once. GUI thread.
class RecentListMemory
{
public:
    void keep(const RecentSortFilterModel &model, const QItemSelectionModel &selection);
    /// Makes the kept rows that are there current and selected again, and forgets them.
    void giveBack(const RecentSortFilterModel &model, QItemSelectionModel *selection);

private:
    QItemSelection rowsIn(const RecentSortFilterModel &model) const;

    QString m_currentId;
    QStringList m_selectedIds;
    bool m_all = false; // every row was selected: 100,000 ids say no more than this
};

namespace zel::recent {
/// Numbers of the selected rows, ascending.
QVector<int> selectedRowNumbers(const QItemSelectionModel &selection);
} // namespace zel::recent
