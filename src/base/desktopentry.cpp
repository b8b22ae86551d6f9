#include "base/desktopentry.h"

#include "base/latin1.h"

#include <algorithm>

namespace zel {
namespace {

constexpr QLatin1String Group = latin1("[Desktop Entry]");
constexpr QLatin1String ReservedCharacters = latin1(" \t\n\"'\\><~|&;$*?#()`");
constexpr QLatin1String EscapedInQuotes = latin1("\"`$\\");

QString unescaped(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('\\') || i + 1 == text.size()) {
            result += text.at(i);
            continue;
        }
        const QChar next = text.at(++i);
        switch (next.unicode()) {
        case 's':
            result += QLatin1Char(' ');
            break;
        case 'n':
            result += QLatin1Char('\n');
            break;
        case 't':
            result += QLatin1Char('\t');
            break;
        case 'r':
            result += QLatin1Char('\r');
            break;
        case '\\':
            result += next;
            break;
        default: // of a list, or not an escape at all
            result += QLatin1Char('\\');
            result += next;
        }
    }
    return result;
}

QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), latin1("\\\\"));
    text.replace(QLatin1Char('\n'), latin1("\\n"));
    text.replace(QLatin1Char('\t'), latin1("\\t"));
    text.replace(QLatin1Char('\r'), latin1("\\r"));
    return text;
}

QString quoted(const QString &argument)
{
    const bool plain = !argument.isEmpty() && std::none_of(argument.begin(), argument.end(), [](QChar c) {
        return QString(ReservedCharacters).contains(c);
    });
    QString result;
    for (const QChar c : argument) {
        if (!plain && QString(EscapedInQuotes).contains(c))
            result += QLatin1Char('\\');
        result += c;
    }
    result.replace(QLatin1Char('%'), latin1("%%")); // or it would begin a field code
    return plain ? result : QLatin1Char('"') + result + QLatin1Char('"');
}

} // namespace

DesktopEntry::DesktopEntry(const QByteArray &text) : m_lines(QString::fromUtf8(text).split(QLatin1Char('\n')))
{
    if (!m_lines.isEmpty() && m_lines.constLast().isEmpty())
        m_lines.removeLast();
    for (int i = 0; i < m_lines.size() && m_begin < 0; ++i) {
        if (m_lines.at(i).trimmed() == Group)
            m_begin = i;
    }
}

// The line behind the group's last one.
int DesktopEntry::end() const
{
    int line = m_begin + 1;
    while (line < m_lines.size() && !m_lines.at(line).startsWith(QLatin1Char('[')))
        ++line;
    return line;
}

int DesktopEntry::lineOf(const QString &key) const
{
    for (int i = m_begin + 1; isValid() && i < end(); ++i) {
        const QString &line = m_lines.at(i);
        if (line.startsWith(key) && line.mid(key.size()).trimmed().startsWith(QLatin1Char('=')))
            return i;
    }
    return -1;
}

QString DesktopEntry::value(const QString &key) const
{
    const int line = lineOf(key);
    return line < 0 ? QString() : unescaped(m_lines.at(line).section(QLatin1Char('='), 1).trimmed());
}

QStringList DesktopEntry::values(const QString &key) const
{
    return value(key).split(QLatin1Char(';'), Qt::SkipEmptyParts);
}

bool DesktopEntry::flag(const QString &key, bool otherwise) const
{
    const QString text = value(key);
    if (text == latin1("true") || text == latin1("1"))
        return true;
    return text == latin1("false") || text == latin1("0") ? false : otherwise;
}

void DesktopEntry::setValue(const QString &key, const QString &value)
{
    if (!isValid()) {
        m_begin = m_lines.size();
        m_lines.append(Group);
    }
    const QString text = key + QLatin1Char('=') + escaped(value);
    const int line = lineOf(key);
    if (line >= 0) {
        m_lines[line] = text;
        return;
    }
    int place = end();
    while (place > m_begin + 1 && m_lines.at(place - 1).trimmed().isEmpty())
        --place; // a blank line before the next group stays there
    m_lines.insert(place, text);
}

void DesktopEntry::remove(const QString &key)
{
    for (int line = lineOf(key); line >= 0; line = lineOf(key))
        m_lines.removeAt(line);
}

QByteArray DesktopEntry::toText() const
{
    return m_lines.isEmpty() ? QByteArray() : m_lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

QString DesktopEntry::execLine(const QString &program, const QStringList &arguments)
{
    if (program.isEmpty() || program.contains(QLatin1Char('=')))
        return {};
    QStringList words{quoted(program)};
    for (const QString &argument : arguments)
        words.append(quoted(argument));
    return words.join(QLatin1Char(' '));
}

QString DesktopEntry::programOf(const QString &execLine)
{
    const QString text = execLine.trimmed();
    QString program;
    const bool inQuotes = text.startsWith(QLatin1Char('"'));
    bool closed = !inQuotes;
    for (int i = inQuotes ? 1 : 0; i < text.size(); ++i) {
        QChar c = text.at(i);
        if (c == (inQuotes ? QLatin1Char('"') : QLatin1Char(' '))) {
            closed = true;
            break;
        }
        if (inQuotes && c == QLatin1Char('\\') && i + 1 < text.size())
            c = text.at(++i);
        program += c;
    }
    return closed ? program.replace(latin1("%%"), latin1("%")) : QString();
}

} // namespace zel
