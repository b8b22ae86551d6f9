#include "lists/listmemory.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"

#include <QItemSelectionModel>

void ListMemory::keep(const ListModel &model, const QItemSelectionModel &selection)
{
    const QModelIndex current = selection.currentIndex();
    m_currentId = current.isValid() ? model.idOf(current.row()) : QString();
    m_selectedIds = zel::selectedRowIds(&model, &selection);
}

void ListMemory::giveBack(const ListModel &model, QItemSelectionModel *selection)
{
    if (const int current = model.rowOf(m_currentId); current >= 0)
        selection->setCurrentIndex(model.index(current), QItemSelectionModel::NoUpdate);
    const QItemSelection rows = zel::selectionOf(model, m_selectedIds);
    if (!rows.isEmpty())
        selection->select(rows, QItemSelectionModel::ClearAndSelect);
    clear();
}
