#include "base/searchfold.h"

#include <array>

namespace zel {
namespace {

// The voicing marks of Japanese are not accents: they make another syllable.
bool isAccent(QChar c)
{
    return c.category() == QChar::Mark_NonSpacing && c.unicode() != 0x3099 && c.unicode() != 0x309A;
}

// Neither case nor marks: CJK ideographs and kana without separate marks.
bool staysAsItIs(ushort c)
{
    return (c >= 0x3400 && c <= 0x9FFF) || (c >= 0x3041 && c <= 0x3096) || (c >= 0x30A1 && c <= 0x30FE);
}

// Letters that people write without their stroke, or as two, and that no decomposition takes apart.
QString plainLetters(QChar c)
{
    switch (c.unicode()) {
    case 0xDF: // sharp s
    case 0x1E9E:
        return QStringLiteral("ss");
    case 0xC6:
    case 0xE6: // ae
        return QStringLiteral("ae");
    case 0xD8:
    case 0xF8: // o with stroke
        return QStringLiteral("o");
    case 0x110:
    case 0x111: // d with stroke
        return QStringLiteral("d");
    case 0x131: // dotless i
        return QStringLiteral("i");
    case 0x141:
    case 0x142: // l with stroke
        return QStringLiteral("l");
    case 0x152:
    case 0x153: // oe
        return QStringLiteral("oe");
    }
    return c;
}

QString foldedSlowly(const QString &text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString plain;
    plain.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        if (!isAccent(c))
            plain += plainLetters(c);
    }
    return plain.normalized(QString::NormalizationForm_C).toCaseFolded();
}

// One letter for each of the Latin blocks; 0 where it is none or more than one.
using LatinTable = std::array<ushort, 0x180>;

LatinTable latinTable()
{
    LatinTable table = {};
    for (ushort code = 1; code < table.size(); ++code) {
        const QString folded = foldedSlowly(QChar(code));
        table[code] = folded.size() == 1 ? folded.at(0).unicode() : 0;
    }
    return table;
}

} // namespace

void appendFolded(QString &target, const QString &text)
{
    static const LatinTable latin = latinTable();
    const int start = target.size();
    target.resize(start + text.size());
    QChar *out = target.data() + start;
    for (const QChar c : text) {
        const ushort code = c.unicode();
        const ushort folded = code < latin.size() ? latin[code] : staysAsItIs(code) ? code : 0;
        if (folded == 0) {
            target.truncate(start);
            target += foldedSlowly(text);
            return;
        }
        *out++ = QChar(folded);
    }
}

QStringList searchWords(const QString &text)
{
    QString folded;
    appendFolded(folded, text.simplified());
    QStringList words = folded.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.removeDuplicates();
    return words;
}

} // namespace zel
