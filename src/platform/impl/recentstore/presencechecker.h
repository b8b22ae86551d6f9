#pragma once

#include "krecentfile.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <thread>

namespace zel::recent {

using PresenceResults = QHash<QString, RecentFileInfo::Presence>; ///< by path

/// Looks whether a file exists, following links: a dangling one is missing; one that may not be looked at is
/// unknown. May block for as long as the file system does.
RecentFileInfo::Presence presenceOf(const QString &path);

/// Looks whether files exist, on a thread of its own that lives only while there is something to look at.
///
/// A dead network mount can hold that thread for ever. When one look takes longer than the patience, the
/// thread is given up: it ends by itself if the look ever returns, touching nothing of ours; everything else
/// on that mount is left out from then on and the rest goes on with a new thread. Destruction waits a second
/// at most and does the same.
class PresenceChecker final : public QObject
{
    Q_OBJECT
public:
    using Probe = std::function<RecentFileInfo::Presence(const QString &)>;

    explicit PresenceChecker(QObject *parent = nullptr, Probe probe = presenceOf, int patienceMs = 5000);
    ~PresenceChecker() override;

    void end();                                        ///< looks no more; nothing is told from then on
    void check(const QStringList &paths, bool urgent); ///< in this order; urgent ones before all others

Q_SIGNALS:
    void found(const zel::recent::PresenceResults &results); ///< in batches, on this object's thread

private:
    struct Shared;

    void start();
    void lookForProgress();
    void giveUp();

    const Probe m_probe;
    std::shared_ptr<Shared> m_shared; ///< with the thread, which may outlive this object
    std::thread m_thread;
    QTimer m_patience; ///< runs only while files are looked at
    qint64 m_seenProgress = -1;
    QStringList m_deadMounts;
    int m_givenUp = 0;
};

} // namespace zel::recent

Q_DECLARE_METATYPE(zel::recent::PresenceResults)
