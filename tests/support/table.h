#pragma once

#include "support/text.h"

#include <QTest>

#include <tuple>

namespace zeltest {

/// Of the table that was made last, which is that of the running test.
inline QVector<const char *> columnNames;

/// Names the columns of a data table, and returns the function that adds its rows:
///
///     const auto row = table<QString, bool>("path", "usable");
///     row("missing", "", true);
///
/// The test gets the values of its row, or of its first columns, by `const auto [path, usable] = row<QString,
/// bool>();`. A text may be given as UTF-8 in quotes.
template <class... Columns, class... Names> auto table(Names... names)
{
    static_assert(sizeof...(Columns) == sizeof...(Names), "each column has a type and a name");
    columnNames = {names...};
    (QTest::addColumn<Columns>(names), ...);
    return [](const Text &name, const CellOf<Columns> &...values) {
        QTestData &row = QTest::newRow(qPrintable(name.text()));
        ((row << Columns(values)), ...);
    };
}

/// The values of the first columns in the present row.
template <class... Columns> std::tuple<Columns...> row()
{
    int next = 0;
    const auto value = [&next](int type) { return QTest::qData(columnNames.at(next++), type); };
    return std::tuple<Columns...>{*static_cast<const Columns *>(value(qMetaTypeId<Columns>()))...};
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
