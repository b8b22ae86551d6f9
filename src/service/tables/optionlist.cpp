#include "service/tables/optionlist.h"

#include <QByteArray>
#include <QStringList>

namespace zel::service {
namespace {

std::optional<QStringList> splitPieces(QStringView line)
{
    QStringList pieces;
    QString piece;
    bool quoted = false;
    for (const QChar c : line) {
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
    pieces.removeAll(QString());
    return quoted ? std::nullopt : std::optional(pieces);
}

} // namespace

std::optional<OptionList> parseOptions(QStringView line)
{
    const auto pieces = splitPieces(line);
    if (!pieces)
        return {};
    OptionList options;
    for (const QString &piece : *pieces) {
        const int equals = piece.indexOf(QLatin1Char('='));
        const int separator = equals >= 0 ? equals : piece.indexOf(QLatin1Char(':'));
        const QString name = piece.mid(1, separator < 0 ? -1 : separator - 1).toLower();
        if (!piece.startsWith(QLatin1Char('/')) || name.isEmpty() || options.contains(name))
            return {};
        options.insert(name, separator < 0 ? QString() : piece.mid(separator + 1));
    }
    return options;
}

std::optional<QString> decodeText(const QString &base64)
{
    // Only what encodes back to the same text was Base64 or UTF-8 to the letter.
    const QByteArray encoded = base64.toLatin1();
    const QByteArray bytes = QByteArray::fromBase64(encoded);
    const QString text = QString::fromUtf8(bytes);
    if (QString::fromLatin1(encoded) != base64 || bytes.toBase64() != encoded || text.toUtf8() != bytes)
        return {};
    return text;
}

} // namespace zel::service
