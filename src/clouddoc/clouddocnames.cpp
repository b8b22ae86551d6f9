#include "clouddoc/clouddocnames.h"

namespace zel::clouddoc {
namespace {

// Longer ones are no suffixes but part of a name with a point in it.
constexpr int LongestSuffix = 16;
constexpr int MostNumbers = 10000;

bool hasControlCharacter(const QString &name)
{
    for (const QChar c : name)
        if (c.category() == QChar::Other_Control)
            return true;
    return false;
}

bool isReserved(const QString &name)
{
    return name == QLatin1String(".") || name == QLatin1String("..")
        || name.startsWith(QLatin1String(".zel-"));
}

int utf8Length(const QString &text)
{
    return text.toUtf8().size();
}

QString numbered(const QString &name, int number, bool folder)
{
    const int stemEnd = stemLength(name, folder);
    QString stem = name.left(stemEnd);
    const QString tail = QStringLiteral(" (%1)").arg(number) % name.midRef(stemEnd);
    while (!stem.isEmpty() && utf8Length(stem % tail) > LongestNameBytes) {
        const bool pair = stem.size() > 1 && stem.at(stem.size() - 1).isLowSurrogate();
        stem.chop(pair ? 2 : 1);
    }
    return stem % tail;
}

} // namespace

int stemLength(const QString &name, bool folder)
{
    const int point = name.lastIndexOf(QLatin1Char('.'));
    const bool suffix = !folder && point > 0 && name.size() - point <= LongestSuffix
        && !name.midRef(point).contains(QLatin1Char(' '));
    return suffix ? point : name.size();
}

NameProblem checkName(const QString &name, const IsTaken &isTaken)
{
    if (name.isEmpty())
        return NameProblem::Empty;
    if (name.contains(QLatin1Char('/')))
        return NameProblem::Slash;
    if (isReserved(name))
        return NameProblem::Reserved;
    // A lone surrogate has no UTF-8, so no disk can hold it.
    if (hasControlCharacter(name) || QString::fromUtf8(name.toUtf8()) != name)
        return NameProblem::ControlCharacter;
    if (utf8Length(name) > LongestNameBytes)
        return NameProblem::TooLong;
    return isTaken && isTaken(name) ? NameProblem::Taken : NameProblem::None;
}

QString cleanedName(const QString &typed)
{
    return typed.trimmed();
}

QString freeName(const QString &wanted, bool folder, const IsTaken &isTaken)
{
    QString name = wanted;
    for (int number = 2; number < MostNumbers && isTaken(name); ++number)
        name = numbered(wanted, number, folder);
    return name;
}

} // namespace zel::clouddoc
