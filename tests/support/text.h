#pragma once

#include <QString>
#include <QStringList>

#include <type_traits>

namespace zeltest {

/// A QString parameter that also takes UTF-8 in quotes.
class Text
{
public:
    Text() = default;
    Text(const char *utf8) : m_text(QString::fromUtf8(utf8)) { }
    template <class Other>
    requires std::is_convertible_v<Other, QString> Text(const Other &other) : m_text(other) { }
    operator QString() const { return m_text; }
    const QString &text() const { return m_text; }

private:
    QString m_text;
};

/// How a value of a column is given.
template <class Column> using CellOf = std::conditional_t<std::is_same_v<Column, QString>, Text, Column>;

/// {"a", "b"} as a list.
inline QStringList words(std::initializer_list<Text> list)
{
    QStringList result;
    for (const Text &word : list)
        result.append(word);
    return result;
}

} // namespace zeltest
