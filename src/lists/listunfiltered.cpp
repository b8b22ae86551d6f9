#include "lists/listunfiltered.h"

#include "lists/listmodel.h"

#include <QItemSelectionModel>

#include <utility>

void ListUnfiltered::note(const QString &currentId)
{
    if (!m_id)
        m_id = currentId;
}

void ListUnfiltered::giveBack(const ListModel &model, QItemSelectionModel *selection)
{
    const std::optional<QString> id = std::exchange(m_id, std::nullopt);
    const int row = id ? model.rowOf(*id) : -1;
    if (row >= 0 && !selection->hasSelection())
        selection->setCurrentIndex(model.index(row), QItemSelectionModel::NoUpdate);
}
