#include "lists/rowselection.h"

#include "lists/listmodel.h"

#include <QSet>
#include <algorithm>

namespace zel {

QVector<int> selectedRowNumbers(const QItemSelectionModel *selection)
{
    QVector<int> rows;
    const QItemSelection ranges = selection ? selection->selection() : QItemSelection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows << row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

QModelIndexList selectedRows(const ListModel *model, const QItemSelectionModel *selection)
{
    const QVector<int> numbers = selectedRowNumbers(selection);
    QModelIndexList rows;
    rows.reserve(numbers.size());
    for (const int row : numbers)
        rows << model->index(row);
    return rows;
}

QStringList selectedRowIds(const ListModel *model, const QItemSelectionModel *selection)
{
    const QVector<int> rows = selectedRowNumbers(selection);
    QStringList ids;
    ids.reserve(rows.size());
    for (const int row : rows)
        ids << model->idOf(row);
    return ids;
}

int selectedRowCount(const QItemSelectionModel *selection)
{
    int count = 0;
    const QItemSelection ranges = selection ? selection->selection() : QItemSelection();
    for (const QItemSelectionRange &range : ranges)
        count += range.height();
    return count;
}

QItemSelection selectionOf(const ListModel &model, QVector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QItemSelection selection;
    for (auto from = std::lower_bound(rows.cbegin(), rows.cend(), 0); from != rows.cend();) {
        auto to = from;
        while (std::next(to) != rows.cend() && *std::next(to) == *to + 1)
            ++to;
        selection.select(model.index(*from), model.index(*to));
        from = std::next(to);
    }
    return selection;
}

QItemSelection selectionOf(const ListModel &model, const QStringList &ids)
{
    QVector<int> rows;
    if (ids.size() < model.rowCount() / 10) {
        for (const QString &id : ids)
            rows << model.rowOf(id);
        return selectionOf(model, std::move(rows));
    }
    const QSet<QString> wanted(ids.cbegin(), ids.cend()); // to look for each of many would take longer
    for (int row = 0; row < model.rowCount(); ++row) {
        if (wanted.contains(model.idOf(row)))
            rows << row;
    }
    return selectionOf(model, std::move(rows));
}

} // namespace zel
