#pragma once

#include "lists/listsection.h"

#include <QAbstractListModel>

/// What a list page shows: rows with ids, in sections. GUI thread. A row's id is the same as long as what it
/// stands for is the same, also over reloads; selection, anchor and assistive programs hang on it.
class ListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    virtual QString idOf(int row) const = 0;        ///< `row` is in range; never empty
    virtual int rowOf(const QString &id) const = 0; ///< -1: not here, or hidden by a filter
    /// All rows, by section; up to date whenever a signal about rows is emitted. Here: one without a header.
    virtual zel::ListSections sections() const;
    /// Who follows `row` when the rows `first` to `last`, it among them, are about to go: the next one that
    /// stays, else the one before; -1: nobody stays.
    virtual int successorOf(int row, int first, int last) const;
    virtual int totalCount() const { return rowCount(); } ///< also what a filter hides

Q_SIGNALS:
    void sectionsChanged(); ///< follows the row signals of the same change
    void countsChanged();   ///< rowCount() or totalCount() is another one; follows the row signals
};
