#include "databasefiles.h"

#include "base/paths.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::recent {

// Without opening an existing one: closing it again would take away the locks that this process has on it.
void makePrivate(const QString &database)
{
    const int made =
        ::open(QFile::encodeName(database).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (made >= 0)
        ::close(made);
    for (const char *suffix : {"", "-wal", "-shm"}) {
        const QByteArray path = QFile::encodeName(database + QLatin1String(suffix));
        struct stat status
        {
        };
        const bool ours =
            ::stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
        if (ours && (status.st_mode & 077) != 0)
            ::chmod(path.constData(), 0600);
    }
}

QString keepDatabaseAside(const QString &database)
{
    const QString kept = paths::keepAside(database);
    for (const char *suffix : {"-wal", "-shm"}) {
        const QString beside = database + QLatin1String(suffix);
        if (!kept.isEmpty() && QFileInfo::exists(beside))
            QFile::rename(beside, kept + QLatin1String(suffix));
    }
    return kept;
}

void removeKeptAside(const QString &database)
{
    const QFileInfo place(database);
    const QString copies = place.fileName() + QStringLiteral(".damaged-*");
    for (const QFileInfo &copy : place.dir().entryInfoList({copies}, QDir::Files))
        QFile::remove(copy.filePath());
}

} // namespace zel::recent
