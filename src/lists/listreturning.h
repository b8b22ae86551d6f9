#pragma once

#include <QSet>
#include <QStringList>

class ListModel;
class QItemSelectionModel;

/// Rows that the user brings back by an undo, which takes a moment: they are selected once they come, as they
/// were when they went. GUI thread.
class ListReturning
{
public:
    void expect(const QStringList &ids); ///< those of before are no longer waited for
    void clear() { *this = {}; }         ///< the user went on with something else
    /// Rows `start` to `end` are new. True when the first of those that were waited for has become current.
    bool arrive(const ListModel &model, QItemSelectionModel *selection, int start, int end);

private:
    QSet<QString> m_ids;
    bool m_begun = false; // some have come, and are selected
};
