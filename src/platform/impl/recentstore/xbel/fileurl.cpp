#include "fileurl.h"

#include <QDir>
#include <QSysInfo>

#include <optional>

namespace zel::recent {
namespace {

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::optional<QByteArray> decoded(const QByteArray &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes.append(text[i]);
            continue;
        }
        const int high = i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
        const int low = high >= 0 ? hexValue(text[i + 2]) : -1;
        const int value = high * 16 + low;
        if (low < 0 || value == 0 || value == '/')
            return {};
        bytes.append(char(value));
        i += 2;
    }
    return bytes;
}

bool isThisMachine(const QString &host)
{
    static const QString name = QSysInfo::machineHostName();
    return host.isEmpty() || host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0
        || host.compare(name, Qt::CaseInsensitive) == 0;
}

QString withoutSchemeAndHost(const QString &address)
{
    const QLatin1String scheme("file:");
    if (!address.startsWith(scheme, Qt::CaseInsensitive))
        return {};
    QString rest = address.mid(scheme.size());
    if (!rest.startsWith(QLatin1String("//")))
        return rest;
    const int slash = rest.indexOf(QLatin1Char('/'), 2);
    return slash >= 2 && isThisMachine(rest.mid(2, slash - 2)) ? rest.mid(slash) : QString();
}

} // namespace

QString localPathOf(const QString &address)
{
    const QString encoded = withoutSchemeAndHost(address);
    if (!encoded.startsWith(QLatin1Char('/')) || encoded.contains(QLatin1Char('#')))
        return {};
    if (!encoded.contains(QLatin1Char('%')))
        return QDir::cleanPath(encoded);
    const std::optional<QByteArray> bytes = decoded(encoded.toUtf8());
    if (!bytes)
        return {};
    const QString path = QString::fromUtf8(*bytes);
    if (path.contains(QChar::ReplacementCharacter) && path.toUtf8() != *bytes)
        return {};
    return QDir::cleanPath(path);
}

} // namespace zel::recent
