#pragma once

#include "base/posix/mounts.h"

#include <QCache>
#include <QDeadlineTimer>
#include <QImage>
#include <QObject>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zel {
class DetachedJob;
}

namespace zel::platform {

struct ThumbnailKey
{
    QString path;
    int pixels = 0;
    bool operator==(const ThumbnailKey &) const = default;
};
inline uint qHash(const ThumbnailKey &key, uint seed)
{
    return qHash(key.path, seed) ^ uint(key.pixels);
}

struct ThumbnailLimits
{
    int bytes = 24 * 1024 * 1024; ///< of pictures
    int none = 8192;              ///< documents that are known to have none
    int waiting = 256; ///< more than one screen; what was dropped is asked for when it is painted again
    std::chrono::milliseconds fresh = std::chrono::minutes(1); ///< until a document is looked at again
    std::chrono::milliseconds patience = std::chrono::seconds(5);
};

/// Thumbnails in memory, and the requests for those that are not there yet, latest first, one at a time on a
/// thread apart. GUI thread. Where a file system does not answer, nothing is looked for any more.
class ThumbnailStore final : public QObject
{
    Q_OBJECT
public:
    using Reader = std::function<QImage(const QString &path, int pixels)>;

    ThumbnailStore(Reader reader, const ThumbnailLimits &limits, QObject *parent);

    QImage find(const QString &path, int pixels); ///< null when not known (yet)
    void clear();

Q_SIGNALS:
    void loaded(const QString &path); ///< never from inside find()

private:
    struct Picture
    {
        QImage image;
        QDeadlineTimer fresh;
    };

    void want(const ThumbnailKey &key);
    void next();
    void start(const ThumbnailKey &key);
    void take(const ThumbnailKey &key, const QImage &image);
    bool isLeftOut(const QString &path) const;

    const Reader m_reader;
    const ThumbnailLimits m_limits;
    QCache<ThumbnailKey, Picture> m_pictures;
    QCache<ThumbnailKey, QDeadlineTimer> m_none; ///< until then
    std::vector<ThumbnailKey> m_waiting;         ///< latest at the end
    DetachedJob *m_job = nullptr;
    ThumbnailKey m_current; ///< what the job looks for; empty: its result is not wanted any more
    posix::DeadPlaces m_dead;
    std::shared_ptr<std::atomic_int> m_threads =
        std::make_shared<std::atomic_int>(0); ///< with those given up
};

} // namespace zel::platform
