#include "settings/storage.h"

#include "base/paths.h"
#include "kdcinfoc.h"
#include "krt/krt.h"
#include "ksettings.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

namespace zel::settings {
namespace {

constexpr int MostThreads = 4; // more would gather on a dead network mount, one with each look
std::atomic<int> runningThreads = 0;

QString cacheHome()
{
    const QString value = QFile::decodeName(qgetenv("XDG_CACHE_HOME"));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value)
                                       : QDir::homePath() + QStringLiteral("/.cache");
}

StoragePlace filesLike(StorageKind kind, const QString &file)
{
    const QFileInfo info(file);
    return {kind, info.path(), {info.fileName(), info.fileName() + QStringLiteral("[.-]*")}};
}

void add(StorageUse &use, QDirIterator &files, const std::function<bool()> &isWanted)
{
    while (files.hasNext() && isWanted()) {
        files.next();
        use.bytes += files.fileInfo().size();
    }
}

} // namespace

QString StoragePlace::path() const
{
    return patterns.isEmpty() ? folder : QString(folder + QLatin1Char('/') + patterns.constFirst());
}

QVector<StoragePlace> storagePlaces(const QString &drive)
{
    const QString data = paths::dataDir();
    QVector<StoragePlace> places{filesLike(StorageKind::RecentHistory, data + QStringLiteral("/recent.db"))};
    if (!drive.isEmpty())
        places.append({StorageKind::CloudDrive, drive, {}});
    StoragePlace cloud = filesLike(StorageKind::CloudDatabase, data + QStringLiteral("/cloud.db"));
    cloud.patterns << QStringLiteral("drive.db") << QStringLiteral("drive.db[.-]*");
    places << cloud << filesLike(StorageKind::Settings, KSettings::filePath())
           << filesLike(StorageKind::Logs, krt::log::filePath())
           << filesLike(StorageKind::Telemetry, KDcInfoC::filePath())
           << StoragePlace{StorageKind::Thumbnails, cacheHome() + QStringLiteral("/thumbnails"), {}};
    return places;
}

StorageUse storageUse(const StoragePlace &place, const std::function<bool()> &isWanted)
{
    constexpr QDir::Filters Files = QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks;
    StorageUse use;
    if (place.patterns.isEmpty()) {
        use.exists = QFileInfo(place.folder).isDir();
        QDirIterator files(place.folder, Files, QDirIterator::Subdirectories);
        add(use, files, isWanted);
        return use;
    }
    QDirIterator files(place.folder, place.patterns, Files);
    use.exists = files.hasNext();
    add(use, files, isWanted);
    return use;
}

/// Shared with the thread, which may outlive the meter.
struct StorageMeter::Job
{
    std::mutex mutex;
    StorageMeter *meter = nullptr; ///< null: nobody wants to know any more

    bool isWanted()
    {
        const std::lock_guard lock(mutex);
        return meter != nullptr;
    }
    void tell(StorageKind kind, const StorageUse &use)
    {
        const std::lock_guard lock(mutex);
        if (StorageMeter *const to = meter)
            QMetaObject::invokeMethod(
                to, [to, kind, use] { Q_EMIT to->measured(kind, use); }, Qt::QueuedConnection);
    }
};

StorageMeter::~StorageMeter()
{
    giveUp();
}

void StorageMeter::giveUp()
{
    if (!m_job)
        return;
    const std::lock_guard lock(m_job->mutex);
    m_job->meter = nullptr;
}

void StorageMeter::measure(const QVector<StoragePlace> &places)
{
    giveUp();
    if (runningThreads >= MostThreads)
        return;
    QVector<StoragePlace> inOrder = places;
    std::stable_partition(
        inOrder.begin(), inOrder.end(), [](const StoragePlace &place) { return !place.patterns.isEmpty(); });
    m_job = std::make_shared<Job>();
    m_job->meter = this;
    ++runningThreads;
    std::thread([job = m_job, inOrder] {
        for (const StoragePlace &place : inOrder) {
            const StorageUse use = storageUse(place, [&job] { return job->isWanted(); });
            job->tell(place.kind, use);
        }
        --runningThreads;
    }).detach();
}

} // namespace zel::settings
