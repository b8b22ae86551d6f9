#include "service/store/clouddatabase.h"

#include "base/logging.h"
#include "base/paths.h"
#include "base/posix/uniquefd.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>

namespace zel::service {

using sqlite::Failure;
using wire::ServiceError;

namespace {

ServiceError errorOfSystem(int number)
{
    return number == ENOSPC || number == EDQUOT ? ServiceError::DiskFull : ServiceError::InputOutput;
}

} // namespace

QString CloudDatabase::defaultFile()
{
    return paths::dataDir() + QStringLiteral("/cloud.db");
}

CloudDatabase::CloudDatabase(const QString &file, QObject *parent) : QObject(parent), m_file(file) { }

CloudDatabase::~CloudDatabase() = default;

void CloudDatabase::addOwner(std::function<SchemaState(sqlite::Database &)> prepare)
{
    m_owners.push_back(std::move(prepare));
}

ServiceError CloudDatabase::ready()
{
    if (m_connection.isOpen() && !m_suspect)
        return ServiceError::None;
    const bool checksAgain = m_connection.isOpen();
    QString kept;
    Opened result = open();
    if (result == Opened::Unusable) {
        result = keepAside() ? open() : Opened::Later;
        kept = m_keptAside;
    }
    if (result != Opened::Yes)
        return loseConnection();
    m_suspect = false;
    if (!kept.isEmpty())
        Q_EMIT replaced(kept);
    if (!checksAgain || !kept.isEmpty())
        Q_EMIT opened();
    return ServiceError::None;
}

ServiceError CloudDatabase::use(const std::function<void(sqlite::Database &)> &work)
{
    const ServiceError error = ready();
    if (error != ServiceError::None)
        return error;
    work(m_connection);
    const Failure failure = m_connection.failure();
    if (failure != Failure::None)
        qCWarning(
            lcService, "the database could not be used: %s", qUtf8Printable(m_connection.failureText()));
    const ServiceError told = errorOf(failure);
    if (m_connection.isReadOnly()) // opened anew before the next use
        m_connection.close();
    m_connection.clearFailure();
    return told;
}

ServiceError CloudDatabase::errorOf(Failure failure)
{
    switch (failure) {
    case Failure::None:
        return ServiceError::None;
    case Failure::Busy:
        return ServiceError::InputOutput;
    case Failure::Damaged:
        m_suspect = true; // looked at before the next use
        return ServiceError::Corrupt;
    case Failure::Unavailable:
        return m_connection.ranOutOfSpace() ? ServiceError::DiskFull : ServiceError::InputOutput;
    }
    return ServiceError::Internal;
}

CloudDatabase::Opened CloudDatabase::open()
{
    QElapsedTimer watch;
    watch.start();
    m_connection.close();
    struct stat status = {};
    if (::stat(QFile::encodeName(m_file).constData(), &status) == 0 && !S_ISREG(status.st_mode))
        return Opened::Unusable;
    if (!makeFile())
        return Opened::Later;
    m_connection.open(m_file);
    if (m_connection.isReadOnly())
        m_connection.note(SQLITE_READONLY);
    m_connection.useWriteAheadLog();
    m_connection.exec("PRAGMA synchronous=FULL");
    SchemaState state = isSound() ? SchemaState::Ready : SchemaState::Failed;
    for (const auto &prepare : m_owners) {
        if (state == SchemaState::Ready)
            state = prepare(m_connection);
    }
    if (state == SchemaState::Newer)
        qCWarning(lcService, "the database was made by a later version");
    if (state == SchemaState::Newer || m_connection.failure() == Failure::Damaged)
        return Opened::Unusable;
    m_error = errorOf(m_connection.failure());
    if (state == SchemaState::Ready)
        qCInfo(lcService, "database opened in %lld ms", qlonglong(watch.elapsed()));
    return state == SchemaState::Ready ? Opened::Yes : Opened::Later;
}

// SQLite would make it readable for others; the files beside it get the mode of this one.
bool CloudDatabase::makeFile()
{
    const QString folder = QFileInfo(m_file).path();
    if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
        ::chmod(QFile::encodeName(folder).constData(), 0700);
    const posix::UniqueFd fd(
        ::open(QFile::encodeName(m_file).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (fd && ::fchmod(fd.get(), 0600) == 0)
        return true;
    m_error = errorOfSystem(errno);
    qCWarning(lcService, "the database cannot be opened: %s", std::strerror(errno));
    return false;
}

bool CloudDatabase::isSound()
{
    sqlite::Statement check(m_connection, "PRAGMA quick_check(1)");
    if (!check.step())
        return false;
    const QString verdict = check.text(0);
    if (verdict == QLatin1String("ok"))
        return true;
    qCWarning(lcService, "the database is damaged: %s", qUtf8Printable(verdict));
    m_connection.note(SQLITE_CORRUPT);
    return false;
}

// The log of changes goes along under the name that SQLite expects, so that what can be read stays readable.
bool CloudDatabase::keepAside()
{
    const QString why = m_connection.failureText();
    m_connection.close();
    const QString kept = paths::keepAside(m_file);
    if (kept.isEmpty()) {
        qCWarning(lcService, "a damaged database cannot be moved: %s", std::strerror(errno));
        m_error = ServiceError::InputOutput;
        return false;
    }
    for (const QString &suffix : {QStringLiteral("-wal"), QStringLiteral("-shm")}) {
        if (QFile::exists(m_file + suffix))
            QFile::rename(m_file + suffix, kept + suffix);
    }
    qCWarning(lcService, "a database that cannot be used was kept aside (%s); a new one is made",
        qUtf8Printable(why));
    m_keptAside = kept;
    return true;
}

ServiceError CloudDatabase::loseConnection()
{
    if (m_connection.failure() != Failure::None)
        qCWarning(lcService, "the database cannot be opened: %s", qUtf8Printable(m_connection.failureText()));
    m_connection.close();
    return m_error == ServiceError::None ? ServiceError::InputOutput : m_error;
}

} // namespace zel::service
