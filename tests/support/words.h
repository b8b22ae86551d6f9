#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>

#include <sstream>
#include <string_view>
#include <type_traits>

/// What failed comparisons print where QtTest prints nothing: enumerators by their names, what a std::ostream
/// takes (the records of the link among it), lists, and plain structs, "{Denied, "a.txt", [1, 2]}". The
/// compiler includes this before everything else in every test (cmake/ZelTest.cmake).
namespace QTest {
template <class Value> char *toString(const Value &value);
}

namespace zeltest {

template <class Enum, Enum value> constexpr std::string_view enumerator()
{
    std::string_view text = __PRETTY_FUNCTION__; // "… [with Enum = a::B; Enum value = a::B::C; …]"
    text = text.substr(text.find("value = ") + 8);
    text = text.substr(0, text.find_first_of(";]"));
    return text.substr(text.rfind(':') + 1);
}

/// "Denied"; the number for one that has no name or is not among the first 64.
template <class Enum> std::string wordOf(Enum value)
{
    std::string word;
    const auto look = [&]<int... Number>(std::integer_sequence<int, Number...>)
    {
        ((int(value) == Number ? void(word = enumerator<Enum, Enum(Number)>()) : void()), ...);
    };
    look(std::make_integer_sequence<int, 64>());
    return word.empty() || word.front() == '(' ? std::to_string(int(value)) : word;
}

/// Convertible to whatever a field is.
struct Anything
{
    template <class Value> operator Value() const;
};

/// Whether a struct can be made of so many values.
template <class Struct, int Count>
concept TakesFields = []<int... Number>(std::integer_sequence<int, Number...>)
{
    return requires
    {
        Struct{(void(Number), Anything())...};
    };
}
(std::make_integer_sequence<int, Count>());

/// Fields of a struct, up to seven of them.
template <class Struct, int Most = 7> constexpr int fieldCount()
{
    if constexpr (Most == 1 || TakesFields<Struct, Most>)
        return Most;
    else
        return fieldCount<Struct, Most - 1>();
}

template <class Value>
concept Wordless = std::is_enum_v<Value> && !QtPrivate::IsQEnumHelper<Value>::Value;
template <class Value>
concept Streamed = std::is_class_v<Value> && requires(std::ostream &out, const Value &value)
{
    out << value;
};
template <class Value>
concept Listed = std::is_class_v<Value> && !Streamed<Value> && requires(const Value &value)
{
    value.begin() != value.end();
};
template <class Value>
concept Plain = std::is_aggregate_v<Value> && std::is_class_v<Value> && !std::is_empty_v<
                    Value> && !Streamed<Value> && !Listed<Value>;

template <class... Values> std::string joined(const Values &...values)
{
    std::string text;
    const auto add = [&text](char *word) {
        text += (text.empty() ? "" : ", ") + std::string(word ? word : "?");
        delete[] word;
    };
    (add(QTest::toString(values)), ...);
    return text;
}

} // namespace zeltest

// QtTest asks QTest::Internal::toString, and finds what was declared before its own header.
namespace QTest::Internal {

template <zeltest::Wordless Enum> char *toString(const Enum &value)
{
    return qstrdup(zeltest::wordOf(value).c_str());
}

template <zeltest::Streamed Value> char *toString(const Value &value)
{
    std::ostringstream out;
    out << value;
    return qstrdup(out.str().c_str());
}

inline char *toString(const std::u16string &text)
{
    return qstrdup(QString::fromStdU16String(text).toUtf8().constData());
}

inline char *toString(const std::u32string &text)
{
    return qstrdup(QString::fromStdU32String(text).toUtf8().constData());
}

template <zeltest::Listed List> char *toString(const List &list)
{
    constexpr size_t Enough = 400; // of what a message holds
    std::string text;
    for (auto it = list.begin(); it != list.end() && text.size() < Enough; ++it)
        text += (text.empty() ? "" : ", ") + zeltest::joined(*it);
    return qstrdup(('[' + text + ']').c_str());
}

template <zeltest::Plain Struct> char *toString(const Struct &value)
{
    constexpr int Count = zeltest::fieldCount<Struct>();
    std::string text = "?";
    if constexpr (Count == 1) {
        const auto &[a] = value;
        text = zeltest::joined(a);
    } else if constexpr (Count == 2) {
        const auto &[a, b] = value;
        text = zeltest::joined(a, b);
    } else if constexpr (Count == 3) {
        const auto &[a, b, c] = value;
        text = zeltest::joined(a, b, c);
    } else if constexpr (Count == 4) {
        const auto &[a, b, c, d] = value;
        text = zeltest::joined(a, b, c, d);
    } else if constexpr (Count == 5) {
        const auto &[a, b, c, d, e] = value;
        text = zeltest::joined(a, b, c, d, e);
    } else if constexpr (Count == 6) {
        const auto &[a, b, c, d, e, f] = value;
        text = zeltest::joined(a, b, c, d, e, f);
    }
    return qstrdup(('{' + text + '}').c_str());
}

} // namespace QTest::Internal
