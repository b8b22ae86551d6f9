#include "service/transfer/localdrivesource.h"

#include "base/logging.h"
#include "base/paths.h"
#include "base/posix/uniquefd.h"
#include "base/sqlite/database.h"
#include "service/drive/driveindex.h"
#include "service/drive/localdrive.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>

namespace zel::service {
namespace {

struct OpenDrive
{
    OpenDrive(const QString &root, const std::shared_ptr<DriveClaim> &claim)
        : drive(root, database, claim) { }

    sqlite::Database database;
    LocalDrive drive;
};

// SQLite would make it readable for others; the files beside it get the mode of this one.
DriveDone makeFile(const QString &file)
{
    const posix::UniqueFd fd(::open(QFile::encodeName(file).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!fd)
        return disk::lastError("the drive's database");
    if (::fchmod(fd.get(), 0600) != 0)
        qCWarning(lcService, "the drive's database keeps its permissions: %s", std::strerror(errno));
    return DriveOk();
}

DriveDone open(sqlite::Database &database, const QString &file)
{
    DriveDone made = makeFile(file);
    if (!made)
        return made;
    database.open(file);
    database.useWriteAheadLog();
    if (database.isReadOnly())
        return DriveError{DriveError::Kind::Io, QStringLiteral("the drive's database cannot be written")};
    return database.exec("PRAGMA synchronous=FULL") ? DriveDone(DriveOk()) : databaseError(database);
}

bool keepAside(sqlite::Database &database, const QString &file)
{
    const QString why = database.failureText();
    database.close();
    const QString kept = paths::keepAside(file);
    if (kept.isEmpty())
        return false;
    for (const QString &suffix : {QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::rename(file + suffix, kept + suffix);
    qCWarning(lcService, "the drive's database was damaged (%s) and kept aside; a new one is made",
        qUtf8Printable(why));
    return true;
}

class LocalDrives
{
public:
    LocalDrives(const QString &root, const QString &file) : m_root(root), m_file(file) { }

    DriveResult<std::shared_ptr<CloudDrive>> make()
    {
        const std::lock_guard lock(m_mutex);
        const auto made = std::make_shared<OpenDrive>(m_root, m_claim);
        DriveDone ready = prepare(*made);
        if (!ready && !m_prepared && made->database.failure() == sqlite::Failure::Damaged
            && keepAside(made->database, m_file))
            ready = prepare(*made);
        if (!ready)
            return ready.error();
        m_prepared = true;
        return std::shared_ptr<CloudDrive>(made, &made->drive);
    }

private:
    DriveDone prepare(OpenDrive &made)
    {
        DriveDone opened = open(made.database, m_file);
        return !opened || m_prepared ? opened : made.drive.prepare();
    }

    const QString m_root;
    const QString m_file;
    const std::shared_ptr<DriveClaim> m_claim = std::make_shared<DriveClaim>();
    std::mutex m_mutex;
    bool m_prepared = false;
};

} // namespace

DriveThread::Factory localDrives(const QString &root, const QString &databaseFile)
{
    const auto drives = std::make_shared<LocalDrives>(root, databaseFile);
    return [drives] { return drives->make(); };
}

} // namespace zel::service
