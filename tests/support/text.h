#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <type_traits>

/// A text of a test: "…"_s is a QString of UTF-8 bytes.
inline QString operator""_s(const char *text, size_t size)
{
    return QString::fromUtf8(text, int(size));
}

namespace zeltest {

/// A QString parameter that also takes UTF-8 in quotes.
class Text
{
public:
    Text() = default;
    Text(const char *utf8) : m_text(QString::fromUtf8(utf8)) { }
    Text(const std::string &utf8) : m_text(QString::fromStdString(utf8)) { }
    template <class Other>
    requires std::is_convertible_v<Other, QString> Text(const Other &other) : m_text(other) { }
    operator QString() const { return m_text; }
    const QString &text() const { return m_text; }

private:
    QString m_text;
};

/// A number parameter that also takes enumerators.
template <class Number> class Numeral
{
public:
    Numeral() = default;
    template <class Value> Numeral(Value value) : m_number(Number(value)) { }
    operator Number() const { return m_number; }

private:
    Number m_number = 0;
};

/// How a value of a column is given.
template <class Column>
using CellOf = std::conditional_t<std::is_same_v<Column, QString>, Text,
    std::conditional_t<std::is_integral_v<Column>, Numeral<Column>, Column>>;

/// {"a", "b"} as a list.
inline QStringList words(std::initializer_list<Text> list)
{
    QStringList result;
    for (const Text &word : list)
        result.append(word);
    return result;
}

/// What `word`, a function or a member, makes of the entries of a list.
template <class List, class Word>
QString joined(const List &list, const Word &word, const QString &between = " "_s)
{
    QStringList words;
    for (const auto &entry : list)
        words.append(Text(std::invoke(word, entry)));
    return words.join(between);
}

} // namespace zeltest
