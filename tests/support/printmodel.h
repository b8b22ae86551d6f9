#pragma once

#include "lists/listmodel.h"

namespace zeltest {

using RowWord = std::function<QString(const QModelIndex &index)>;

inline QString shownWord(const QModelIndex &index)
{
    return index.data().toString();
}

/// The rows of a model, to be compared at once: "[section] word word [section] word"; a section without a
/// title says nothing, and sections that do not cover the rows say GAP.
inline QString printModel(const QAbstractItemModel &model, const RowWord &word = shownWord)
{
    QStringList words;
    const auto *list = qobject_cast<const ListModel *>(&model);
    const zel::ListSections sections =
        list ? list->sections() : zel::ListSections{{0, {}, 0, model.rowCount()}};
    int row = 0;
    for (const zel::ListSection &section : sections) {
        if (section.firstRow != row || (list && section.count < 1))
            words << "GAP"_s;
        if (!section.title.isEmpty())
            words << QLatin1Char('[') + section.title + QLatin1Char(']');
        for (; row < section.firstRow + section.count; ++row)
            words << word(model.index(row, 0));
    }
    if (row != model.rowCount())
        words << "GAP"_s;
    return words.join(QLatin1Char(' '));
}

} // namespace zeltest
