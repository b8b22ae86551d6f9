#include "app/commandline.h"

#include <QStringList>

namespace {

// Splitting at every blank and joining again inside quotes, in one pass: a blank splits only outside of
// quotes, and the quotes themselves go.
QStringList splitPieces(const QString &text)
{
    QStringList pieces;
    QString piece;
    bool quoted = false;
    for (const QChar c : text) {
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
        } else if (c == QLatin1Char(' ') && !quoted) {
            pieces.append(piece);
            piece.clear();
        } else {
            piece.append(c);
        }
    }
    pieces.append(piece);
    return pieces;
}

// A ":" may be part of a name's value ("/path=C:\x"), so it separates only where there is no "=" at all.
int separatorOf(const QString &piece)
{
    const int equals = piece.indexOf(QLatin1Char('='));
    return equals >= 0 ? equals : piece.indexOf(QLatin1Char(':'));
}

} // namespace

CommandLine parseCommandLine(const QString &text)
{
    CommandLine result;
    QStringList remainder;
    const QStringList pieces = splitPieces(text);
    for (const QString &piece : pieces) {
        if (!piece.startsWith(QLatin1Char('/'))) {
            remainder.append(piece);
            continue;
        }
        remainder.clear();
        const int separator = separatorOf(piece);
        const QString name = piece.mid(1, separator < 0 ? -1 : separator - 1).toLower();
        result.options.insert(name, separator < 0 ? QString() : piece.mid(separator + 1));
    }
    result.remainder = remainder.join(QLatin1Char(' '));
    return result;
}
