#pragma once

#include <QStringList>

class ListModel;
class QItemSelectionModel;

/// What a person had current and selected, by ids: a reload takes all rows away and brings most of them
/// back at once, and a filter may leave none for a while. GUI thread.
class ListMemory
{
public:
    void keep(const ListModel &model, const QItemSelectionModel &selection);
    /// Makes the kept rows that are there current and selected again, and forgets them.
    void giveBack(const ListModel &model, QItemSelectionModel *selection);
    void clear() { *this = {}; }

private:
    QString m_currentId;
    QStringList m_selectedIds;
};
