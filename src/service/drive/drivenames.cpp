#include "drivenames.h"

namespace zel::service {
namespace {

// Longer ones are no extensions but part of a name with a point in it.
constexpr int LongestExtension = 16;

int extensionLength(const QString &name)
{
    const int point = name.lastIndexOf(QLatin1Char('.'));
    const int length = name.size() - point;
    const bool real =
        point > 0 && length <= LongestExtension && !name.midRef(point).contains(QLatin1Char(' '));
    return real ? length : 0;
}

} // namespace

bool isHiddenDriveName(const QString &name)
{
    return name.startsWith(QLatin1String(HiddenPrefix));
}

bool isValidDriveName(const QString &name)
{
    const QByteArray bytes = name.toUtf8();
    if (bytes.isEmpty() || bytes.size() > LongestNameBytes || bytes == "." || bytes == "..")
        return false;
    if (bytes.contains('/') || bytes.contains('\0') || isHiddenDriveName(name))
        return false;
    return QString::fromUtf8(bytes) == name; // a lone surrogate has no UTF-8
}

QString numberedDriveName(const QString &name, int number, bool isFolder)
{
    const int extension = isFolder ? 0 : extensionLength(name);
    QString stem = name.left(name.size() - extension);
    const QString tail = QStringLiteral(" (%1)").arg(number) % name.rightRef(extension);
    while (!stem.isEmpty() && (stem % tail).toUtf8().size() > LongestNameBytes) {
        const bool pair = stem.size() > 1 && stem.at(stem.size() - 1).isLowSurrogate();
        stem.chop(pair ? 2 : 1);
    }
    return stem % tail;
}

} // namespace zel::service
