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

template <class Column> struct NamedValue
{
    Text name;
    CellOf<Column> value;
};

/// A table of one column: `rows<bool>("up", {{"upload", true}, {"download", false}});`.
template <class Column> void rows(const char *column, std::initializer_list<NamedValue<Column>> list)
{
    const auto row = table<Column>(column);
    for (const NamedValue<Column> &each : list)
        row(each.name, each.value);
}

/// A column of texts that are the names of their rows.
inline void names(const char *column, std::initializer_list<Text> list)
{
    const auto row = table<QString>(column);
    for (const Text &each : list)
        row(each, each);
}

} // namespace zeltest
