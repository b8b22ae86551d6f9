#include "lists/listleaving.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"

#include <QItemSelectionModel>
#include <algorithm>

void ListLeaving::set(const QStringList &ids)
{
    m_ids = QSet<QString>(ids.cbegin(), ids.cend());
}

bool ListLeaving::areSent(const QStringList &ids) const
{
    return std::all_of(ids.cbegin(), ids.cend(), [this](const QString &id) { return m_ids.contains(id); });
}

// Each counts once: a row that has come back may be taken away by others the next time.
void ListLeaving::forget(const ListModel &model, int start, int end)
{
    for (int row = start; row <= end && !m_ids.isEmpty(); ++row)
        m_ids.remove(model.idOf(row));
}

bool ListLeaving::leave(const ListModel &model, QItemSelectionModel *selection, int start, int end)
{
    const auto goes = [start, end](int row) { return row >= start && row <= end; };
    const QItemSelection ranges = selection->selection();
    const bool selectionGoes = !ranges.isEmpty()
        && std::all_of(ranges.cbegin(), ranges.cend(),
            [&](const QItemSelectionRange &range) { return goes(range.top()) && goes(range.bottom()); });
    const int current = selection->currentIndex().row();
    const bool ringGoes = ranges.isEmpty() && current >= 0 && goes(current); // that was acted on
    const bool goesOn = (selectionGoes && areSent(zel::selectedRowIds(&model, selection)))
        || (ringGoes && areSent({model.idOf(current)}));
    forget(model, start, end);
    if (current < 0 || (!goes(current) && !goesOn))
        return false;
    const int next = goes(current) ? model.successorOf(current, start, end) : current;
    selection->setCurrentIndex(
        model.index(next), goesOn ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate);
    return !goesOn;
}
