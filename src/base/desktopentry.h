#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <QVector>

namespace zel {

/// The text of a desktop entry file (freedesktop Desktop Entry Specification 1.5), read and changed line by
/// line: what is not touched stays as it is, comments and other programs' keys too. Only the group "[Desktop
/// Entry]" is looked at; of a key that stands there more than once the last one counts, as for the desktops.
/// A value; any thread.
class DesktopEntry
{
public:
    DesktopEntry() = default;
    explicit DesktopEntry(const QByteArray &text);

    bool isValid() const { return m_begin >= 0; } ///< it has the group
    bool contains(const QString &key) const { return !linesOf(key).isEmpty(); }
    QString value(const QString &key) const; ///< of type string, without its escapes; empty without the key
    QStringList values(const QString &key) const;        ///< of a list
    bool flag(const QString &key, bool otherwise) const; ///< "true" or "false"; anything else: `otherwise`

    void setValue(const QString &key, const QString &value); ///< makes the group when there is none
    void remove(const QString &key);
    QByteArray toText() const;

    /// The command line of an Exec key for this program and its arguments, quoted by the rules of the Desktop
    /// Entry standard. Empty when the program's name holds "=", which no entry can name.
    static QString execLine(const QString &program, const QStringList &arguments);
    /// The program that an Exec line names; empty when it names none or its quotes do not close.
    static QString programOf(const QString &execLine);

private:
    QVector<int> linesOf(const QString &key) const;
    int end() const;

    QByteArrayList m_lines; ///< as they are: old files mix encodings
    int m_begin = -1;       ///< line of the group
};

} // namespace zel
