#include "service/store/datafolder.h"

#include "base/logging.h"
#include "base/posix/filelock.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace zel::service {

DataFolder claimDataFolder(const QString &folder, posix::Deadline deadline)
{
    if (!QDir(folder).exists() && QDir().mkpath(folder))
        ::chmod(QFile::encodeName(folder).constData(), 0700);
    DataFolder claimed;
    posix::UniqueFd lock = posix::openLockFile(QFile::encodeName(folder).toStdString() + "/service.lock");
    if (lock && posix::lockUntil(lock.get(), deadline))
        claimed.lock = std::move(lock);
    else if (errno == ETIMEDOUT || errno == EWOULDBLOCK)
        claimed.isTaken = true;
    else
        qCWarning(lcService, "the data folder cannot be locked: %s", std::strerror(errno));
    return claimed;
}

} // namespace zel::service
