#include "base/trash/trashinfo.h"

#include "base/trash/trashfolder.h"

#include <QList>

#include <algorithm>

namespace zel::trash {
namespace {

constexpr int LongestSuffix = 16; // what comes after the last dot of a longer one is part of the name

bool leadsElsewhere(const QByteArray &path)
{
    return path.isEmpty() || path.contains('\0') || path.split('/').contains("..");
}

// Length of the longest start of at most `size` bytes that ends with a whole character.
int wholeCharacters(const QByteArray &text, int size)
{
    if (size >= text.size())
        return text.size();
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
        --size;
    return size;
}

} // namespace

QByteArray infoText(const QByteArray &path, const QDateTime &deletedAt)
{
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/")
        + "\nDeletionDate=" + deletedAt.toString(QStringLiteral("yyyy-MM-ddThh:mm:ss")).toLatin1() + '\n';
}

QByteArray pathOfInfo(const QByteArray &text)
{
    const QList<QByteArray> lines = text.split('\n');
    if (lines.constFirst().trimmed() != "[Trash Info]")
        return {};
    for (const QByteArray &line : lines.mid(1)) {
        if (line.startsWith('[')) // a group of somebody else
            break;
        const int separator = line.indexOf('=');
        if (separator < 0 || line.left(separator).trimmed() != "Path")
            continue;
        const QByteArray path = QByteArray::fromPercentEncoding(line.mid(separator + 1).trimmed());
        return leadsElsewhere(path) ? QByteArray() : path;
    }
    return {};
}

QByteArray nameInTrash(const QByteArray &name, int attempt, int maximum)
{
    const int dot = name.lastIndexOf('.');
    const bool hasSuffix = dot > 0 && name.size() - dot <= LongestSuffix;
    const QByteArray suffix = hasSuffix ? name.mid(dot) : QByteArray();
    const QByteArray tail = (attempt > 1 ? '.' + QByteArray::number(attempt) : QByteArray()) + suffix;
    const QByteArray stem = name.left(name.size() - suffix.size());
    const int room = std::max(1, maximum - int(qstrlen(InfoSuffix)) - tail.size());
    return stem.left(wholeCharacters(stem, room)) + tail;
}

} // namespace zel::trash
