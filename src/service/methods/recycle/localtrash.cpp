#include "service/methods/recycle/localtrash.h"

#include "base/logging.h"

#include <QDir>
#include <QFileInfo>
#include <memory>
#include <sys/stat.h>
#include <utility>

namespace zel::service {

using wire::ServiceError;

namespace {

QString canonical(const QString &folder)
{
    const QString path = QFileInfo(folder).canonicalFilePath();
    return path.isEmpty() ? QDir::cleanPath(folder) : path;
}

// Whether `path` is `folder` or below it; both canonical.
bool isWithin(const QString &path, const QString &folder)
{
    return path == folder || folder == QLatin1String("/") || path.startsWith(folder + QLatin1Char('/'));
}

LocalPlace refused(ServiceError error, const char *reason)
{
    LocalPlace place;
    place.error = error;
    place.reason = QString::fromLatin1(reason);
    return place;
}

// A slash at the end would follow a link, and ".." there name a folder. Before that ".." stays: only the file
// system knows where it leads behind a link.
QString withPlainEnd(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    const QString name = path.section(QLatin1Char('/'), -1);
    return name == QLatin1String(".") || name == QLatin1String("..") ? canonical(path) : path;
}

} // namespace

LocalPlace localPlace(const QString &path, const QString &home, const QString &driveRoot)
{
    if (!QDir::isAbsolutePath(path) || path.contains(QChar::Null))
        return refused(ServiceError::InvalidArgument, "An absolute path is needed.");
    const QFileInfo info(withPlainEnd(path));
    struct stat status
    {
    };
    if (::lstat(QFile::encodeName(info.filePath()).constData(), &status) != 0)
        return errno == EACCES ? refused(ServiceError::Denied, "The file cannot be reached.")
                               : refused(ServiceError::NotFound, "There is no such file.");
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode) && !S_ISLNK(status.st_mode))
        return refused(ServiceError::Denied, "It is neither a file nor a folder.");
    LocalPlace place;
    const QString folder = canonical(info.path());
    place.path = info.fileName().isEmpty() ? QStringLiteral("/") : QDir(folder).filePath(info.fileName());
    if (isWithin(canonical(home), place.path) || isWithin(canonical(driveRoot), place.path))
        return refused(ServiceError::Denied, "The folder is needed where it is.");
    const QString root = canonical(driveRoot);
    if (isWithin(place.path, root))
        place.inDrive = place.path.mid(root.size() + 1);
    return place;
}

ServiceError serviceError(trash::Outcome outcome)
{
    switch (outcome) {
    case trash::Outcome::Done:
        return ServiceError::None;
    case trash::Outcome::Missing:
        return ServiceError::NotFound;
    case trash::Outcome::Denied:
        return ServiceError::Denied;
    case trash::Outcome::Exists:
        return ServiceError::Exists;
    case trash::Outcome::Failed:
        return ServiceError::InputOutput;
    }
    return ServiceError::Internal;
}

LocalTrash::LocalTrash(const QString &driveRoot)
    : m_driveRoot(driveRoot), m_context(std::make_unique<QObject>()), m_pool(std::make_unique<QThreadPool>())
{
    m_pool->setMaxThreadCount(1);
}

// A file system that does not answer any more must not keep the process from ending: then both stay behind.
LocalTrash::~LocalTrash()
{
    constexpr int PatienceMs = 5000;
    if (m_pool->waitForDone(PatienceMs))
        return;
    qCWarning(lcService, "a file system did not answer before the end");
    static_cast<void>(m_pool.release());
    static_cast<void>(m_context.release());
}

// `done` owns an answer, which belongs to this thread: it moves along, so that it never goes on the other.
template <class Value>
void LocalTrash::run(std::function<Value()> work, std::function<void(const Value &)> done)
{
    auto shared = std::make_shared<std::function<void(const Value &)>>(std::move(done));
    m_pool->start([context = m_context.get(), work = std::move(work), shared = std::move(shared)]() mutable {
        const Value value = work();
        QMetaObject::invokeMethod(
            context, [value, shared = std::move(shared)] { (*shared)(value); }, Qt::QueuedConnection);
    });
}

void LocalTrash::put(const QString &path, std::function<void(const LocalPlace &, const trash::Result &)> done)
{
    using Put = std::pair<LocalPlace, trash::Result>;
    run<Put>(
        [path, drive = m_driveRoot] {
            Put result{localPlace(path, QDir::homePath(), drive), {}};
            if (result.first.error == ServiceError::None && result.first.inDrive.isEmpty())
                result.second = trash::put(result.first.path);
            if (!result.second.logText.isEmpty())
                qCWarning(
                    lcService, "a local file was not removed: %s", qUtf8Printable(result.second.logText));
            return result;
        },
        [done = std::move(done)](const Put &result) { done(result.first, result.second); });
}

void LocalTrash::restore(
    const QStringList &trashIds, std::function<void(const QVector<trash::Result> &)> done)
{
    run<QVector<trash::Result>>(
        [trashIds] {
            QVector<trash::Result> results;
            for (const QString &id : trashIds) {
                results.append(trash::restore(id));
                if (!results.last().logText.isEmpty())
                    qCWarning(lcService, "a local file was not brought back: %s",
                        qUtf8Printable(results.last().logText));
            }
            return results;
        },
        std::move(done));
}

} // namespace zel::service
