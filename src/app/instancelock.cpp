#include "app/instancelock.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

QString zel::instanceLockPath()
{
    return QStringLiteral("%1/%2%3.lock")
        .arg(QDir::tempPath(), QStringLiteral("__#_ZELBOX_INVELA_INSTANCE_KEY_#__"),
            QString::number(::getuid()));
}

void zel::takeInstanceLock()
{
    const QByteArray path = QFile::encodeName(instanceLockPath());
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    struct flock wholeFile = {};
    wholeFile.l_type = F_WRLCK;
    wholeFile.l_whence = SEEK_SET;
    ::fcntl(fd, F_SETLK, &wholeFile);
}
