#include "lists/listmemory.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"

#include <QItemSelectionModel>

static constexpr int MostSamples = 100; // of all rows; one that is back says that it is a reload

void ListMemory::keep(const ListModel &model, const QItemSelectionModel &selection)
{
    const QModelIndex current = selection.currentIndex();
    m_currentId = current.isValid() ? model.idOf(current.row()) : QString();
    const int count = zel::selectedRowCount(&selection);
    // All that a filter lets through is not all: another one would let through rows that nobody picked.
    m_all = count > 1 && count == model.totalCount();
    if (!m_all) {
        m_selectedIds = zel::selectedRowIds(&model, &selection);
        return;
    }
    m_selectedIds.clear();
    for (int row = 0; row < count; row += 1 + count / MostSamples)
        m_selectedIds << model.idOf(row);
}

void ListMemory::giveBack(const ListModel &model, QItemSelectionModel *selection)
{
    if (const int current = model.rowOf(m_currentId); current >= 0)
        selection->setCurrentIndex(model.index(current), QItemSelectionModel::NoUpdate);
    QItemSelection rows = zel::selectionOf(model, m_selectedIds);
    if (m_all && !rows.isEmpty()) // else all of them have gone, and these are others
        rows = QItemSelection(model.index(0), model.index(model.rowCount() - 1));
    if (!rows.isEmpty())
        selection->select(rows, QItemSelectionModel::ClearAndSelect);
    clear();
}
