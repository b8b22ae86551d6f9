#include "lists/listreturning.h"

#include "lists/listmodel.h"
#include "lists/rowselection.h"

#include <QItemSelectionModel>

void ListReturning::expect(const QStringList &ids)
{
    m_ids = QSet<QString>(ids.cbegin(), ids.cend());
    m_begun = false;
}

bool ListReturning::arrive(const ListModel &model, QItemSelectionModel *selection, int start, int end)
{
    QVector<int> rows;
    for (int row = start; row <= end && !m_ids.isEmpty(); ++row) {
        if (m_ids.remove(model.idOf(row)))
            rows << row;
    }
    if (rows.isEmpty())
        return false;
    const bool first = !std::exchange(m_begun, true);
    if (first)
        selection->setCurrentIndex(model.index(rows.constFirst()), QItemSelectionModel::NoUpdate);
    selection->select(zel::selectionOf(model, std::move(rows)),
        first ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select);
    return first;
}
