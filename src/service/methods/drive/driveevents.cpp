#include "service/methods/drive/driveevents.h"

#include "notify_types.h"
#include "service/dispatch/pushes.h"
#include "service/drive/drivewatcher.h"
#include "service/drive/localdrive.h"
#include "service/transfer/drivethread.h"

#include <QDateTime>

namespace zel::service {

/// One look at the drive: what is asked, and on its thread the answer.
struct DriveEvents::Look
{
    QString cursor;
    QStringList touched;
    bool rescan = false;
    bool watched = false;

    DriveNews news;
    QHash<QString, DriveItem> items;

    void run(CloudDrive &drive);
    DriveDone refresh(CloudDrive &drive) const;
};

DriveDone DriveEvents::Look::refresh(CloudDrive &drive) const
{
    auto *local = dynamic_cast<LocalDrive *>(&drive);
    if (!local)
        return DriveOk();
    local->setWatched(watched);
    return rescan ? local->rescan() : local->refresh(touched);
}

void DriveEvents::Look::run(CloudDrive &drive)
{
    const auto refreshed = refresh(drive);
    const auto changes =
        refreshed ? drive.changesSince(cursor) : DriveResult<DriveChanges>(refreshed.error());
    if (!changes)
        return;
    // Without an older cursor nothing is news.
    cursor = changes->cursor;
    if (changes->reset)
        return;
    news = summarize(changes->changes);
    QStringList wanted = news.created + news.modified + news.moved;
    if (news.size() > MostItems)
        wanted = news.folders.values().mid(0, MostItems);
    for (const QString &id : qAsConst(wanted))
        if (const auto item = drive.stat(id))
            items.insert(id, *item);
}

DriveEvents::DriveEvents(DriveThread &drive, Pushes &pushes, IdentitySource identity)
    : m_drive(drive), m_pushes(pushes), m_identity(std::move(identity))
{
}

DriveEvents::~DriveEvents()
{
    m_watching.quit();
    m_watching.wait();
}

void DriveEvents::start(const QString &root)
{
    if (m_started)
        return;
    m_started = true;
    m_rescan = true;
    if (root.isEmpty()) {
        check();
        return;
    }
    m_looking = true; // the first look follows the watches, so that nothing happens between the two
    m_watcher = new DriveWatcher(root);
    m_watcher->moveToThread(&m_watching);
    connect(&m_watching, &QThread::started, m_watcher, &DriveWatcher::start);
    connect(&m_watching, &QThread::finished, m_watcher, &QObject::deleteLater);
    connect(m_watcher, &DriveWatcher::started, this, [this] {
        m_looking = false;
        check();
    });
    connect(m_watcher, &DriveWatcher::changed, this, [this](const QStringList &folders) {
        m_touched.unite({folders.begin(), folders.end()});
        check();
    });
    connect(m_watcher, &DriveWatcher::rescanNeeded, this, &DriveEvents::rescan);
    connect(&m_untilNextLook, &QTimer::timeout, this, &DriveEvents::rescan);
    m_untilNextLook.setSingleShot(true);
    m_untilNextLook.setInterval(UnwatchedMs);
    m_watching.setObjectName(QStringLiteral("zel-watch"));
    m_watching.start();
}

void DriveEvents::rescan()
{
    m_rescan = true;
    check();
}

DriveEvents::Look DriveEvents::look()
{
    Look next;
    next.cursor = m_cursor;
    next.touched = m_touched.values();
    next.rescan = m_rescan;
    next.watched = m_watcher && m_watcher->isComplete();
    m_touched.clear();
    m_rescan = false;
    return next;
}

void DriveEvents::check()
{
    if (!m_started)
        return;
    m_again = m_looking;
    if (m_looking)
        return;
    m_looking = true;
    m_drive.run(
        [next = look()](CloudDrive &drive) mutable -> DriveResult<Look> {
            next.run(drive);
            return next;
        },
        [this](const DriveResult<Look> &found) {
            m_looking = false;
            if (m_watcher && !m_watcher->isComplete() && !m_untilNextLook.isActive())
                m_untilNextLook.start();
            if (found)
                tell(*found);
            Q_EMIT told();
            if (m_again)
                check();
        });
}

void DriveEvents::noteOrigin(const QString &id, Origin origin)
{
    m_origins.insert(id, std::move(origin));
}

void DriveEvents::tell(const Look &found)
{
    m_cursor = found.cursor;
    if (found.news.size() > MostItems) {
        tellFolders(found);
    } else {
        tellCreated(found);
        tellChanged(found, found.news.modified, {"size", "mtime", "cloudVersion"});
        tellChanged(found, found.news.moved, {"name", "parentId"});
        tellGone(found);
    }
    m_origins.clear();
    QStringList gone;
    for (const DriveChange &change : found.news.gone)
        gone.append(change.id);
    if (!gone.isEmpty())
        Q_EMIT filesGone(gone);
    if (!found.news.created.isEmpty())
        Q_EMIT filesCame(found.news.created);
}

void DriveEvents::tellCreated(const Look &found)
{
    for (const QString &id : found.news.created) {
        const auto item = found.items.constFind(id);
        if (item == found.items.cend())
            continue;
        vela::NotifyFileCreationArg push;
        push.item = cloudItem(*item, m_identity());
        push.creatorId = m_identity().userId.toStdString();
        const Origin origin = m_origins.value(id, {"create", {}, {}});
        push.source = origin.source;
        push.localPath = origin.localPath;
        push.taskId = origin.taskId;
        m_pushes.push("notifyFileCreation", push);
    }
}

void DriveEvents::tellChanged(const Look &found, const QStringList &ids, std::vector<std::string> fields)
{
    vela::NotifyFilePropertyArg push;
    for (const QString &id : ids) {
        const auto item = found.items.constFind(id);
        if (item != found.items.cend())
            push.items.push_back(cloudItem(*item, m_identity()));
    }
    push.changedFields = std::move(fields);
    push.operatorId = m_identity().userId.toStdString();
    if (!push.items.empty())
        m_pushes.push("notifyFileProperty", push);
}

void DriveEvents::tellGone(const Look &found)
{
    for (const DriveChange &change : found.news.gone) {
        vela::NotifyFileActionArg push;
        push.action = "remove";
        push.item = cloudItem(change, m_identity());
        push.operatorId = m_identity().userId.toStdString();
        push.mtime = QDateTime::currentMSecsSinceEpoch();
        m_pushes.push("notifyFileAction", push);
    }
}

void DriveEvents::tellFolders(const Look &found)
{
    tellChanged(found, found.news.folders.values().mid(0, MostItems), {"children"});
}

} // namespace zel::service
