#include "app/instancelock.h"

#include "base/logging.h"
#include "base/posix/filelock.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstring>

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
    constexpr int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    posix::UniqueFd opened(::open(path.constData(), flags, 0644));
    if (!opened || !posix::isOwnPlainFile(opened.get())) {
        qCWarning(lcApp, "%s cannot be locked: %s", path.constData(),
            opened ? "it is not a plain file of ours" : std::strerror(errno));
        return;
    }
    const int fd = opened.release();
    struct flock wholeFile = {};
    wholeFile.l_type = F_WRLCK;
    wholeFile.l_whence = SEEK_SET;
    ::fcntl(fd, F_SETLK, &wholeFile);
}
