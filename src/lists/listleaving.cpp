#include "lists/listleaving.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"

#include <QItemSelectionModel>
#include <algorithm>

void ListLeaving::set(const QStringList &ids)
{
    m_ids = QSet<QString>(ids.cbegin(), ids.cend());
}

// Each counts once: a row that has come back may be taken away by others the next time.
bool ListLeaving::take(const QStringList &ids)
{
    bool all = true;
    for (const QString &id : ids)
        all = m_ids.remove(id) && all;
    return all;
}

void ListLeaving::leave(const ListModel &model, QItemSelectionModel *selection, int start, int end)
{
    const auto goes = [start, end](int row) { return row >= start && row <= end; };
    const QItemSelection ranges = selection->selection();
    const bool selectionGoes = !ranges.isEmpty()
        && std::all_of(ranges.cbegin(), ranges.cend(),
            [&](const QItemSelectionRange &range) { return goes(range.top()) && goes(range.bottom()); });
    const bool goesOn = selectionGoes && take(zel::selectedRowIds(&model, selection));
    const int current = selection->currentIndex().row();
    if (current < 0 || (!goes(current) && !goesOn))
        return;
    const int next = !goes(current) ? current : end + 1 < model.rowCount() ? end + 1 : start - 1;
    selection->setCurrentIndex(
        model.index(next), goesOn ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate);
}
