#pragma once

#include "base/posix/uniquefd.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <atomic>
#include <map>
#include <memory>

class QSocketNotifier;
struct inotify_event;

namespace zel::service {

/// Tells which folders of a local drive have changed, whoever changed them. Sleeps while nothing happens. The
/// drive's folder may appear later, vanish and come back. On a thread with an event loop.
///
/// Told is a change of names and the closing of a file that was written; a file that stays open for writing
/// is told of when it is closed.
class DriveWatcher final : public QObject
{
    Q_OBJECT
public:
    static constexpr int BatchMs = 200;
    static constexpr int MostWatches = 16384; ///< folders; the system has a limit of its own

    /// `root` absolute. `mostWatches` at least 1.
    explicit DriveWatcher(const QString &root, int mostWatches = MostWatches, QObject *parent = nullptr);
    ~DriveWatcher() override;

    /// Reads the tree of folders, which may take long, says so, and begins to tell what happens since. False:
    /// nothing can be watched. On the thread of this object, like everything but isComplete().
    bool start();
    /// Whether every folder is watched; otherwise the drive has to be read anew when its state matters. Any
    /// thread.
    bool isComplete() const { return m_complete; }
    int watchCount() const { return m_watches.size(); }

Q_SIGNALS:
    void started(); ///< also when nothing can be watched
    /// Paths relative to the root, which is the empty one; folders that came into being are named themselves.
    void changed(const QStringList &folders);
    /// Something was missed, or the drive's folder came or went: read all of it.
    void rescanNeeded();

private:
    bool open();
    void listen();
    void rearm();
    QStringList watchTree(const QString &folder);
    bool addWatch(const QString &folder, const QString &path);
    void remember(int number, const QString &folder);
    void forgetTree(const QString &folder);
    void readEvents();
    void handle(const inotify_event &event, const QByteArray &name);
    void handleAbove(const inotify_event &event, const QByteArray &name);
    void handleOwn(const inotify_event &event, const QString &folder);
    void handleChild(const inotify_event &event, const QString &folder, const QByteArray &name);
    void touch(const QStringList &folders);
    void needRescan();
    void tell();

    const QString m_root;
    const int m_mostWatches;
    posix::UniqueFd m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_batch;
    QHash<int, QString> m_watches;    ///< of folders in the drive
    std::map<QString, int> m_numbers; ///< the other way round; what is below a folder follows it
    int m_above = -1;                 ///< watch of the nearest folder above while the drive's does not exist
    QSet<QString> m_touched;
    QSet<quint32> m_openMoves; ///< went away, and have not turned up elsewhere yet
    bool m_rescan = false;
    bool m_waited = false;
    int m_unwatched = 0; ///< folders beyond the limit, as far as they are known
    std::atomic<bool> m_complete = false;
};

} // namespace zel::service
