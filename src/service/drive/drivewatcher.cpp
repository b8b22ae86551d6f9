#include "drivewatcher.h"

#include "base/logging.h"
#include "drivedisk.h"
#include "drivenames.h"

#include <QDir>
#include <QFileInfo>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace zel::service {
namespace {

constexpr int MoveGraceMs = 20;
constexpr int MostReads = 64; // then other events of the thread get a turn
constexpr quint32 NameEvents = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr quint32 OwnEvents = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr quint32 EndEvents = IN_DELETE_SELF | IN_IGNORED | IN_UNMOUNT;
constexpr quint32 DriveMask = NameEvents | OwnEvents | IN_CLOSE_WRITE | IN_ONLYDIR | IN_EXCL_UNLINK;

QString joined(const QString &folder, const QString &name)
{
    return folder.isEmpty() ? name : QString(folder % QLatin1Char('/') % name);
}

QString nearestExisting(QString folder)
{
    while (folder.size() > 1 && !QFileInfo(folder).isDir())
        folder = QFileInfo(folder).path();
    return folder;
}

QStringList subfolders(const QString &path)
{
    const posix::UniqueFd fd(::open(path.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    int unreadable = 0;
    const auto entries = disk::entriesOf(fd.get(), {}, unreadable);
    QStringList names;
    for (const disk::Entry &entry : entries ? *entries : QVector<disk::Entry>()) {
        if (entry.isFolder)
            names.append(entry.name);
    }
    return names;
}

} // namespace

DriveWatcher::DriveWatcher(const QString &root, int mostWatches, QObject *parent)
    : QObject(parent), m_root(QDir::cleanPath(root)), m_mostWatches(mostWatches), m_batch(this)
{
    m_batch.setSingleShot(true);
    connect(&m_batch, &QTimer::timeout, this, &DriveWatcher::tell);
}

DriveWatcher::~DriveWatcher() = default;

bool DriveWatcher::start()
{
    const bool opened = open();
    listen();
    Q_EMIT started();
    return opened;
}

bool DriveWatcher::open()
{
    m_descriptor.reset(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!m_descriptor) {
        qCWarning(lcService, "drive: cannot watch for changes: %s", std::strerror(errno));
        return false;
    }
    rearm();
    return m_above >= 0 || !m_watches.isEmpty();
}

void DriveWatcher::listen()
{
    if (!m_descriptor)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &DriveWatcher::readEvents);
}

void DriveWatcher::rearm()
{
    forgetTree({});
    if (m_above >= 0)
        ::inotify_rm_watch(m_descriptor.get(), m_above);
    m_above = -1;
    m_unwatched = 0;
    m_complete = true;
    // While one folder is being taken up the next may come into being; then it is that one's turn.
    for (int attempt = 0; attempt < MostReads; ++attempt) {
        watchTree({});
        const QString above = nearestExisting(m_root);
        if (m_numbers.count(QString()) || above == m_root)
            return;
        m_above = ::inotify_add_watch(
            m_descriptor.get(), above.toUtf8().constData(), NameEvents | OwnEvents | IN_ONLYDIR);
        if (m_above >= 0 && nearestExisting(m_root) == above)
            return;
        if (m_above >= 0)
            ::inotify_rm_watch(m_descriptor.get(), m_above);
        m_above = -1;
    }
}

QStringList DriveWatcher::watchTree(const QString &folder)
{
    const int unwatched = m_unwatched;
    QStringList watched;
    QStringList pending{folder};
    while (!pending.isEmpty()) {
        const QString next = pending.takeLast();
        const QString path = next.isEmpty() ? m_root : QString(m_root % QLatin1Char('/') % next);
        if (addWatch(next, path))
            watched.append(next);
        else if (m_unwatched == unwatched)
            continue; // gone again, or not readable
        const QStringList names = subfolders(path);
        for (const QString &name : names)
            pending.append(joined(next, name));
    }
    if (m_unwatched > unwatched && m_complete.exchange(false))
        qCWarning(lcService, "drive: too many folders; %d are watched for changes, %d are not",
            int(m_watches.size()), m_unwatched);
    return watched;
}

bool DriveWatcher::addWatch(const QString &folder, const QString &path)
{
    const quint32 mask = folder.isEmpty() ? DriveMask : DriveMask | IN_DONT_FOLLOW;
    const bool full = m_watches.size() >= m_mostWatches;
    const int number = full ? -1 : ::inotify_add_watch(m_descriptor.get(), path.toUtf8().constData(), mask);
    if (number >= 0)
        remember(number, folder);
    else if (full || errno == ENOSPC || errno == ENOMEM)
        ++m_unwatched;
    return number >= 0;
}

// A watch belongs to the folder itself: one that was found at its new place before the news of its move has
// the same number there.
void DriveWatcher::remember(int number, const QString &folder)
{
    const auto before = m_watches.constFind(number);
    if (before != m_watches.cend())
        m_numbers.erase(*before);
    m_watches.insert(number, folder);
    m_numbers[folder] = number;
}

void DriveWatcher::forgetTree(const QString &folder)
{
    const auto forget = [this](auto from, auto to) {
        for (auto it = from; it != to; it = m_numbers.erase(it)) {
            ::inotify_rm_watch(m_descriptor.get(), it->second);
            m_watches.remove(it->second);
        }
    };
    if (folder.isEmpty()) {
        forget(m_numbers.begin(), m_numbers.end());
        return;
    }
    if (const auto self = m_numbers.find(folder); self != m_numbers.end())
        forget(self, std::next(self));
    constexpr QLatin1Char AfterSlash('0');
    forget(m_numbers.lower_bound(folder % QLatin1Char('/')), m_numbers.lower_bound(folder % AfterSlash));
}

void DriveWatcher::readEvents()
{
    alignas(inotify_event) std::array<char, 64 * 1024> buffer;
    for (int round = 0; round < MostReads; ++round) {
        const ssize_t length = ::read(m_descriptor.get(), buffer.data(), buffer.size());
        if (length <= 0)
            return;
        for (ssize_t at = 0; at < length;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + at);
            handle(*event, QByteArray(event->len ? event->name : "")); // padded with NULs
            at += ssize_t(sizeof(inotify_event)) + event->len;
        }
    }
}

void DriveWatcher::handle(const inotify_event &event, const QByteArray &name)
{
    if (event.mask & IN_Q_OVERFLOW) {
        qCInfo(lcService, "drive: more changes than could be followed");
        rearm();
        needRescan();
        return;
    }
    if (event.wd == m_above) {
        handleAbove(event, name);
        return;
    }
    const auto watch = m_watches.constFind(event.wd);
    if (watch == m_watches.cend())
        return; // of a watch that was given up
    const QString folder = *watch;
    if (event.mask & (EndEvents | IN_MOVE_SELF))
        handleOwn(event, folder);
    else
        handleChild(event, folder, name);
}

void DriveWatcher::handleAbove(const inotify_event &event, const QByteArray &name)
{
    const bool ended = event.mask & (EndEvents | IN_MOVE_SELF);
    // Most of what happens there is none of the drive's.
    const QStringList steps = m_root.split(QLatin1Char('/'));
    if (!ended && !steps.contains(QString::fromUtf8(name)))
        return;
    if (event.mask & EndEvents)
        m_above = -1;
    rearm();
    if (m_numbers.count(QString()))
        needRescan();
}

void DriveWatcher::handleOwn(const inotify_event &event, const QString &folder)
{
    if (folder.isEmpty()) {
        rearm();
        needRescan();
    } else if (event.mask & EndEvents) {
        m_watches.remove(event.wd);
        m_numbers.erase(folder);
    }
}

void DriveWatcher::handleChild(const inotify_event &event, const QString &folder, const QByteArray &name)
{
    const QString child = QString::fromUtf8(name);
    if (isHiddenDriveName(child) || child.toUtf8() != name)
        return;
    touch({folder});
    if (event.mask & IN_MOVED_FROM)
        m_openMoves.insert(event.cookie);
    if (event.mask & IN_MOVED_TO)
        m_openMoves.remove(event.cookie);
    if (!(event.mask & IN_ISDIR))
        return;
    const QString path = joined(folder, child);
    if (event.mask & (IN_MOVED_FROM | IN_DELETE))
        forgetTree(path);
    else if (event.mask & (IN_CREATE | IN_MOVED_TO))
        touch(watchTree(path)); // they may have been filled before the watch was there
}

void DriveWatcher::touch(const QStringList &folders)
{
    for (const QString &folder : folders)
        m_touched.insert(folder);
    if (!m_batch.isActive())
        m_batch.start(BatchMs);
}

void DriveWatcher::needRescan()
{
    m_rescan = true;
    touch({});
}

void DriveWatcher::tell()
{
    readEvents();
    // The other half of a move may be a moment late; told apart, the two would be a removal and something
    // new.
    if (!m_openMoves.isEmpty() && !m_waited) {
        m_waited = true;
        m_batch.start(MoveGraceMs);
        return;
    }
    m_batch.stop();
    m_openMoves.clear();
    m_waited = false;
    QStringList folders = m_touched.values();
    m_touched.clear();
    folders.sort();
    if (std::exchange(m_rescan, false))
        Q_EMIT rescanNeeded();
    else if (!folders.isEmpty())
        Q_EMIT changed(folders);
}

} // namespace zel::service
