#include "widgets/nametext.h"

#include <algorithm>

namespace zel {

static bool turnsDirection(QChar c)
{
    const ushort code = c.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

QString plainLine(QString text)
{
    const auto isUnwanted = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator || turnsDirection(c);
    };
    std::replace_if(text.begin(), text.end(), isUnwanted, QLatin1Char(' '));
    return text;
}

QString shortName(const QString &name)
{
    constexpr int Most = 48;
    constexpr int Tail = 20; // with the suffix
    const QString line = plainLine(name);
    if (line.size() <= Most)
        return line;
    return line.left(Most - Tail - 1).trimmed() + QChar(0x2026) + line.right(Tail).trimmed();
}

// Without a tag a text is guessed to be plain, and its entities would be seen.
QString plainToolTip(const QStringList &lines)
{
    const QString text = lines.join(QLatin1Char('\n')).toHtmlEscaped();
    return text.isEmpty() ? text
                          : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>")
                                .arg(QString(text).replace(QLatin1Char('\n'), QLatin1String("<br>")));
}

QString elidedName(const QString &name, const QFontMetrics &metrics, int width)
{
    constexpr int LongestSuffix = 9; // with its dot; longer ones are part of a sentence rather than a type
    const QString text = plainLine(name);
    if (metrics.horizontalAdvance(text) <= width)
        return text;
    const int dot = text.lastIndexOf(QLatin1Char('.'));
    if (dot <= 0 || text.size() - dot > LongestSuffix)
        return metrics.elidedText(text, Qt::ElideMiddle, width);
    const QString suffix = text.mid(dot);
    const int rest = width - metrics.horizontalAdvance(suffix);
    const QString base = rest > 0 ? metrics.elidedText(text.left(dot), Qt::ElideMiddle, rest) : QString();
    return base.isEmpty() ? metrics.elidedText(text, Qt::ElideLeft, width) : base + suffix;
}

} // namespace zel
