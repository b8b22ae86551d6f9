#pragma once

#include "support/text.h"

#include <QTest>

namespace zeltest {

/// Names the columns of a data table, and returns the function that adds its rows:
///
///     const auto row = table<QString, bool>("path", "usable");
///     row("missing", "", true);
///
/// A text may be given as UTF-8 in quotes.
template <class... Columns, class... Names> auto table(Names... names)
{
    static_assert(sizeof...(Columns) == sizeof...(Names), "each column has a type and a name");
    (QTest::addColumn<Columns>(names), ...);
    return [](const Text &name, const CellOf<Columns> &...values) {
        QTestData &row = QTest::newRow(qPrintable(name.text()));
        ((row << Columns(values)), ...);
    };
}

} // namespace zeltest
