#pragma once

#include "lists/listmodel.h"

namespace zeltest {

/// What a list model tells, in words: "inserted 0-3; moved 3 to 1; changed 1; layout; sections; counts". Says
/// LOST when a row cannot be found by its id while it is about to go, STALE when the sections do not cover
/// the rows at any signal.
class RowSignals : public QObject
{
public:
    explicit RowSignals(ListModel *model) : m_model(model)
    {
        connect(model, &ListModel::rowsInserted, this,
            [this](const QModelIndex &, int first, int last) { note("inserted "_s + rows(first, last)); });
        connect(model, &ListModel::rowsAboutToBeRemoved, this, [this](const QModelIndex &, int first) {
            if (m_model->rowOf(m_model->idOf(first)) != first)
                note("LOST"_s);
        });
        connect(model, &ListModel::rowsRemoved, this,
            [this](const QModelIndex &, int first, int last) { note("removed "_s + rows(first, last)); });
        connect(model, &ListModel::rowsMoved, this,
            [this](const QModelIndex &, int from, int, const QModelIndex &, int to) {
                note("moved %1 to %2"_s.arg(from).arg(to));
            });
        connect(model, &ListModel::dataChanged, this,
            [this](const QModelIndex &a, const QModelIndex &b, const QVector<int> &roles) {
                m_roles = roles;
                note("changed "_s + rows(a.row(), b.row()));
            });
        connect(model, &ListModel::layoutChanged, this, [this] { note("layout"_s); });
        connect(model, &ListModel::modelReset, this, [this] { note("reset"_s); });
        connect(model, &ListModel::sectionsChanged, this, [this] { note("sections"_s); });
        connect(model, &ListModel::countsChanged, this, [this] { note("counts"_s); });
    }

    QString take() ///< since the last time
    {
        const QString text = m_told.join("; "_s);
        m_told.clear();
        return text;
    }
    const QVector<int> &roles() const { return m_roles; } ///< of the last change of data

private:
    static QString rows(int first, int last)
    {
        return first == last ? QString::number(first) : "%1-%2"_s.arg(first).arg(last);
    }
    void note(const QString &text)
    {
        int next = 0;
        for (const zel::ListSection &section : m_model->sections())
            next = section.firstRow == next ? next + section.count : -1;
        m_told << (next == m_model->rowCount() ? text : text + " STALE"_s);
    }

    ListModel *m_model;
    QStringList m_told;
    QVector<int> m_roles;
};

} // namespace zeltest
