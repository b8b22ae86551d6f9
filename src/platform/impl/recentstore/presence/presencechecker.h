#pragma once

#include "base/posix/mounts.h"
#include "platform/impl/recentstore/records/recenttypes.h"

#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <thread>

namespace zel::recent {

/// Looks whether a file exists, how large it is and whether it is a folder, following links: a dangling one
/// is missing; one that may not be looked at is unknown. May block for as long as the file system does.
FileLook lookAt(const QString &path);

/// Looks whether files exist, on a thread of its own that lives only while there is something to look at.
///
/// A dead network mount can hold that thread for ever. When nothing came of one look for as long as the
/// patience (at most twice that), the thread is given up: it ends by itself if the look ever returns,
/// touching nothing of ours, and the rest goes on with a new thread. What posix::deadPlaceOf() names for that
/// file is left out from then on: everything on its mount, or on a local file system just the files of its
/// folder. After several threads given up nothing is looked at any more. Destruction waits a second at most
/// and does the same.
class PresenceChecker final : public QObject
{
    Q_OBJECT
public:
    using Probe = std::function<FileLook(const QString &)>;

    explicit PresenceChecker(QObject *parent = nullptr, Probe probe = lookAt, int patienceMs = 5000);
    ~PresenceChecker() override;

    void end(); ///< looks no more; nothing is told from then on
    /// In this order; urgent ones before all others. What still waits is not asked for twice.
    void check(const QStringList &paths, bool urgent);

Q_SIGNALS:
    /// In batches, the first ones small, on this object's thread.
    void found(const zel::recent::FileLooks &looks);

private:
    struct Shared;

    void start();
    void lookForProgress();
    void giveUp(QStringList &rest);
    bool isLeftOut(const QString &path) const;

    const Probe m_probe;
    std::shared_ptr<Shared> m_shared; ///< with the thread, which may outlive this object
    std::thread m_thread;
    QTimer m_patience; ///< runs only while files are looked at
    qint64 m_seenProgress = -1;
    posix::DeadPlaces m_dead;
    int m_givenUp = 0;
};

} // namespace zel::recent
