#pragma once

#include <QItemSelection>
#include <QStringList>

class ListModel;
class QItemSelectionModel;

/// Selected rows as numbers and ids. A selection is of ranges: with as few of them as it takes, because each
/// costs at every row that is painted.
namespace zel {

// Without a model, which has no selection, nothing is selected.
QVector<int> selectedRowNumbers(const QItemSelectionModel *selection);                      ///< ascending
QModelIndexList selectedRows(const ListModel *model, const QItemSelectionModel *selection); ///< likewise
QStringList selectedRowIds(const ListModel *model, const QItemSelectionModel *selection);   ///< likewise
int selectedRowCount(const QItemSelectionModel *selection);                                 ///< O(ranges)
/// These rows, in any order; negative ones are passed over.
QItemSelection selectionOf(const ListModel &model, QVector<int> rows);
QItemSelection selectionOf(const ListModel &model, const QStringList &ids); ///< those that are here

} // namespace zel
