#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

/// What the box keeps on this computer, for people who want to know. Values and functions: any thread.
namespace zel::settings {

enum class StorageKind { RecentHistory, CloudDrive, CloudDatabase, Settings, Logs, Telemetry, Thumbnails };

struct StoragePlace
{
    StorageKind kind = StorageKind::Settings;
    QString folder;
    QStringList patterns; ///< of files in the folder; empty: the whole folder with what is below it

    bool operator==(const StoragePlace &) const = default;
    QString path() const; ///< to show: the folder, or the file that the first pattern names
};

/// `drive` is the folder of cloud documents; empty while it is not known, which leaves that place out.
QVector<StoragePlace> storagePlaces(const QString &drive);

struct StorageUse
{
    qint64 bytes = 0;
    bool exists = false;
    bool operator==(const StorageUse &) const = default;
};

/// Adds up files; links are not followed. May take long; `isWanted` is asked now and then, false ends it
/// early.
StorageUse storageUse(const StoragePlace &place, const std::function<bool()> &isWanted);

/// Measures places on a thread of its own, because a drive may be large or lie on a dead network mount. GUI
/// thread.
class StorageMeter final : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~StorageMeter() override;

    /// measured() follows for each place, whole folders last; a measurement under way is given up. Nothing
    /// follows while several that were given up still hang.
    void measure(const QVector<StoragePlace> &places);

Q_SIGNALS:
    void measured(zel::settings::StorageKind kind, const zel::settings::StorageUse &use);

private:
    struct Job;
    void giveUp();

    std::shared_ptr<Job> m_job;
};

} // namespace zel::settings

Q_DECLARE_METATYPE(zel::settings::StorageUse)
