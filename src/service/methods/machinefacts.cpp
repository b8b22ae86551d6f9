#include "service/methods/machinefacts.h"

#include "base/latin1.h"
#include "base/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace zel::service {
namespace {

constexpr qint64 LargestDesktopFile = 1 << 20;

QStringList autostartFolders()
{
    QStringList folders{paths::configHome()};
    const QString system = QFile::decodeName(qgetenv("XDG_CONFIG_DIRS"));
    for (const QString &folder :
        (system.isEmpty() ? QStringLiteral("/etc/xdg") : system).split(QLatin1Char(':'))) {
        if (QDir::isAbsolutePath(folder))
            folders.append(folder);
    }
    return folders;
}

// An entry is off when it is hidden or when the desktop's own switch says so.
bool isSwitchedOn(QFile &file)
{
    bool inEntry = false;
    const QString text = QString::fromUtf8(file.read(LargestDesktopFile));
    for (const QString &raw : text.split(QLatin1Char('\n'))) {
        const QString line = raw.trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inEntry = line == latin1("[Desktop Entry]");
        const QString key = line.section(QLatin1Char('='), 0, 0).trimmed();
        const QString value = line.section(QLatin1Char('='), 1).trimmed();
        if (inEntry && key == latin1("Hidden") && value == latin1("true"))
            return false;
        if (inEntry && key == latin1("X-GNOME-Autostart-enabled") && value == latin1("false"))
            return false;
    }
    return true;
}

} // namespace

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
    for (const QString &folder : autostartFolders()) {
        QFile file(folder + QLatin1String("/autostart/zelbox.desktop"));
        if (file.open(QIODevice::ReadOnly))
            return isSwitchedOn(file);
    }
    return false;
}

} // namespace zel::service
