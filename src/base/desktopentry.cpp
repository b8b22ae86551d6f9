#include "base/desktopentry.h"

#include "base/latin1.h"

#include <algorithm>

namespace zel {
namespace {

constexpr char Group[] = "[Desktop Entry]";
constexpr char ByteOrderMark[] = "\xef\xbb\xbf";
constexpr QLatin1String ReservedCharacters = latin1(" \t\n\"'\\><~|&;$*?#()`");
constexpr QLatin1String EscapedInQuotes = latin1("\"`$\\");

bool isGroup(const QByteArray &line)
{
    return line.startsWith('[') && line.trimmed() == Group;
}

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

DesktopEntry::DesktopEntry(const QByteArray &text) : m_lines(text.split('\n'))
{
    if (m_lines.constFirst().startsWith(ByteOrderMark))
        m_lines.first().remove(0, int(qstrlen(ByteOrderMark)));
    if (m_lines.constLast().isEmpty())
        m_lines.removeLast();
    const auto group = std::find_if(m_lines.cbegin(), m_lines.cend(), isGroup);
    if (group != m_lines.cend())
        m_begin = int(group - m_lines.cbegin());
}

// The line behind the group's last one.
int DesktopEntry::end() const
{
    int line = m_begin + 1;
    while (line < m_lines.size() && !m_lines.at(line).startsWith('['))
        ++line;
    return line;
}

// The group may stand there twice.
QVector<int> DesktopEntry::linesOf(const QString &key) const
{
    const QByteArray name = key.toUtf8();
    QVector<int> found;
    bool inGroup = false;
    for (int i = qMax(0, m_begin); i < m_lines.size(); ++i) {
        const QByteArray &line = m_lines.at(i);
        if (line.startsWith('['))
            inGroup = isGroup(line);
        else if (inGroup && line.startsWith(name) && line.mid(name.size()).trimmed().startsWith('='))
            found.append(i);
    }
    return found;
}

QString DesktopEntry::value(const QString &key) const
{
    const QVector<int> lines = linesOf(key);
    if (lines.isEmpty())
        return {};
    const QByteArray &line = m_lines.at(lines.constLast());
    return unescaped(QString::fromUtf8(line.mid(line.indexOf('=') + 1).trimmed()));
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
    const QByteArray text = key.toUtf8() + '=' + escaped(value).toUtf8();
    const QVector<int> lines = linesOf(key);
    if (!lines.isEmpty()) {
        m_lines[lines.constLast()] = text;
        return;
    }
    int place = end();
    while (place > m_begin + 1 && m_lines.at(place - 1).trimmed().isEmpty())
        --place; // a blank line before the next group stays there
    m_lines.insert(place, text);
}

void DesktopEntry::remove(const QString &key)
{
    const QVector<int> lines = linesOf(key);
    std::for_each(lines.crbegin(), lines.crend(), [this](int line) { m_lines.removeAt(line); });
}

QByteArray DesktopEntry::toText() const
{
    return m_lines.isEmpty() ? QByteArray() : m_lines.join('\n') + '\n';
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
