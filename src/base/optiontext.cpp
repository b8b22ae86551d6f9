#include "base/optiontext.h"

namespace zel {

OptionPieces splitOptionText(QStringView text)
{
    OptionPieces result;
    QString piece;
    for (const QChar c : text) {
        if (c == QLatin1Char('"')) {
            result.quoteOpen = !result.quoteOpen;
        } else if (c == QLatin1Char(' ') && !result.quoteOpen) {
            result.pieces.append(piece);
            piece.clear();
        } else {
            piece.append(c);
        }
    }
    result.pieces.append(piece);
    return result;
}

std::optional<Option> parseOption(const QString &piece)
{
    if (!piece.startsWith(QLatin1Char('/')))
        return {};
    // A ":" may be part of a value ("/path=C:\x"), so it separates only where there is no "=" at all.
    const int equals = piece.indexOf(QLatin1Char('='));
    const int separator = equals >= 0 ? equals : piece.indexOf(QLatin1Char(':'));
    if (separator < 0)
        return Option{piece.mid(1).toLower(), {}};
    return Option{piece.mid(1, separator - 1).toLower(), piece.mid(separator + 1)};
}

} // namespace zel
