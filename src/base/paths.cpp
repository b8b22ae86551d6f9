#include "base/paths.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace zel::paths {
namespace {

// A relative path in an XDG variable is invalid and counts as unset.
QString fromEnvironment(const char *variable, const QString &fallback)
{
    const QString value = QFile::decodeName(qgetenv(variable));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : QDir::homePath() + fallback;
}

QString ownFolder(const QString &path)
{
    if (!QDir(path).exists() && QDir().mkpath(path))
        ::chmod(QFile::encodeName(path).constData(), 0700);
    return path;
}

} // namespace

QString configHome()
{
    return fromEnvironment("XDG_CONFIG_HOME", QStringLiteral("/.config"));
}

QString dataHome()
{
    return fromEnvironment("XDG_DATA_HOME", QStringLiteral("/.local/share"));
}

QString stateHome()
{
    return fromEnvironment("XDG_STATE_HOME", QStringLiteral("/.local/state"));
}

QString settingsDir()
{
    return ownFolder(configHome() + QStringLiteral("/Halvorn"));
}

QString dataDir()
{
    return ownFolder(dataHome() + QStringLiteral("/zelbox"));
}

QString stateDir()
{
    return ownFolder(stateHome() + QStringLiteral("/zelbox"));
}

QString shown(const QString &path, const QString &home)
{
    const bool inside = home.size() > 1 && (path == home || path.startsWith(home + QLatin1Char('/')));
    return inside ? QLatin1Char('~') + path.mid(home.size()) : path;
}

QString shown(const QString &path)
{
    return shown(path, QDir::homePath());
}

void makeFolderOf(const QString &file)
{
    ownFolder(QFileInfo(file).path());
}

QString keepAside(const QString &path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddThhmmss"));
    const QString base = path + QStringLiteral(".damaged-") + stamp;
    QString target = base;
    for (int n = 2; QFile::exists(target) && n < 100; ++n)
        target = base + QLatin1Char('-') + QString::number(n);
    return QFile::rename(path, target) ? target : QString();
}

} // namespace zel::paths
