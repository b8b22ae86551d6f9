#include "service/methods/envelope/machinefacts.h"

#include "base/autostart.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace zel::service {

QString cloudCacheDir()
{
    const QString value = QFile::decodeName(qgetenv("XDG_CACHE_HOME"));
    const QString home =
        QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : QDir::homePath() + QLatin1String("/.cache");
    return home + QLatin1String("/zelbox/cloud");
}

qint64 sizeOfFolder(const QString &folder)
{
    qint64 size = 0;
    QDirIterator files(
        folder, QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

bool isAutostarted()
{
    return Autostart(AutostartPlaces::fromEnvironment()).isOn();
}

} // namespace zel::service
