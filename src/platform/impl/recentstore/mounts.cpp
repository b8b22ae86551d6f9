#include "mounts.h"

#include <QList>

namespace zel::recent {
namespace {

// The kernel writes blank, tab, line feed and backslash as three octal digits.
QByteArray unescaped(const QByteArray &field)
{
    QByteArray text;
    for (int i = 0; i < field.size(); ++i) {
        bool ok = false;
        const int code = field[i] == '\\' ? field.mid(i + 1, 3).toInt(&ok, 8) : 0;
        text.append(ok ? char(code) : field[i]);
        i += ok ? 3 : 0;
    }
    return text;
}

} // namespace

bool isBelow(const QString &path, const QString &folder)
{
    if (folder == QLatin1String("/"))
        return path.startsWith(folder);
    return path.startsWith(folder)
        && (path.size() == folder.size() || path.at(folder.size()) == QLatin1Char('/'));
}

QString mountPointOf(const QString &path, const QByteArray &mountInfo)
{
    QString best = QStringLiteral("/");
    for (const QByteArray &line : mountInfo.split('\n')) {
        const QString point = QString::fromUtf8(unescaped(line.split(' ').value(4)));
        if (point.size() > best.size() && isBelow(path, point))
            best = point;
    }
    return best;
}

} // namespace zel::recent
