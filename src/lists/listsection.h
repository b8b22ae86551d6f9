#pragma once

#include <QString>
#include <QVector>

namespace zel {

/// Rows of a list that stand under one header. Plain value.
struct ListSection
{
    static constexpr int Unheaded = 100; ///< a key for rows that need none

    int key = Unheaded; ///< what the section is; the page's numbers
    QString title;      ///< translated; empty: the rows stand without a header
    int firstRow = 0;
    int count = 0; ///< never 0: what has no rows has no section

    bool operator==(const ListSection &) const = default;
};
using ListSections = QVector<ListSection>; ///< in the order of the rows, without gaps

} // namespace zel
