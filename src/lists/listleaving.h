#pragma once

#include <QSet>
#include <QStringList>

class ListModel;
class QItemSelectionModel;

/// What is current and selected once rows have gone. Who removes rows goes on with the next one, as long as
/// nothing else is selected. When others take a row away nothing gets selected, else the next key or an open
/// menu would hit what nobody chose. GUI thread.
class ListLeaving
{
public:
    void set(const QStringList &ids); ///< of rows that the user sends away
    /// Rows `start` to `end` of the model are about to be removed. Whether others take the current row away.
    bool leave(const ListModel &model, QItemSelectionModel *selection, int start, int end);

private:
    bool areSent(const QStringList &ids) const;
    void forget(const ListModel &model, int start, int end);

    QSet<QString> m_ids;
};
