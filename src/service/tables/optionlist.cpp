#include "service/tables/optionlist.h"

#include "base/optiontext.h"

#include <QByteArray>

namespace zel::service {

std::optional<OptionList> parseOptions(QStringView line)
{
    OptionPieces split = splitOptionText(line);
    split.pieces.removeAll(QString());
    if (split.quoteOpen)
        return {};
    OptionList options;
    for (const QString &piece : qAsConst(split.pieces)) {
        const auto option = parseOption(piece);
        if (!option || option->name.isEmpty() || options.contains(option->name))
            return {};
        options.insert(option->name, option->value);
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
