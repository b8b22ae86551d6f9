#pragma once

#include <QTest>

#include <type_traits>

/// A text of a test: "…"_s is a QString of UTF-8 bytes.
inline QString operator""_s(const char *text, size_t size)
{
    return QString::fromUtf8(text, int(size));
}

/// What a row gives for a column: texts may be plain, numbers may be enumerators.
template <class Column> struct TableCell
{
    template <class Value> TableCell(const Value &given)
    {
        if constexpr (std::is_convertible_v<Value, const char *>)
            value = QString::fromUtf8(given);
        else
            value = Column(given);
    }
    operator const Column &() const { return value; }
    Column value;
};
template <class Column>
using Given = std::conditional_t<std::is_same_v<Column, QString> || std::is_integral_v<Column>,
    TableCell<Column>, Column>;

/// Begins the table of a test: `const auto row = columns<int, QString>("count", "text");`, then
/// `row("name of the row", 1, "one");` for each.
template <class... Columns, class... Names> auto columns(Names... names)
{
    static_assert(sizeof...(Columns) == sizeof...(Names));
    (QTest::addColumn<Columns>(names), ...);
    return [](const char *name, const Given<Columns> &...cells) {
        QTestData &data = QTest::newRow(name);
        ((data << static_cast<const Columns &>(cells)), ...);
    };
}
