#include "recentfile/recentfilelogic.h"

#include "base/logging.h"
#include "recentfile/recentcloud.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <algorithm>

using zel::recent::kindMask;

namespace {

constexpr int RoamingRequestKind = 1;

bool isShown(const RecentFileInfo &record)
{
    return (record.kind & kindMask()) != 0;
}

/// The messages of `now` that `before` does not have with the same time.
ZELBOX_ROAMING_MSGLIST newsIn(const ZELBOX_ROAMING_MSGLIST &now, const ZELBOX_ROAMING_MSGLIST &before)
{
    ZELBOX_ROAMING_MSGLIST news;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        const auto known = before.constFind(it.key());
        if (known == before.cend() || known->time != it->time)
            news.insert(it.key(), it.value());
    }
    return news;
}

} // namespace

KRecentFileLogic::KRecentFileLogic(QObject *parent) : KRecentFileLogic(Services{}, parent) { }

KRecentFileLogic::KRecentFileLogic(const Services &services, QObject *parent)
    : QObject(parent), m_services(services), m_opening(new DocumentOpening(services.opener, this))
{
    qRegisterMetaType<RecentFileInfo>();
    qRegisterMetaType<RecordInfoList>();
    connect(m_opening, &DocumentOpening::opened, this, &KRecentFileLogic::onOpened);
    connect(m_opening, &DocumentOpening::cancelled, this,
        [this](const QString &path) { m_openingIds.remove(path); });
    connect(m_opening, &DocumentOpening::failed, this, &KRecentFileLogic::onOpenFailed);
    m_roamingTimer.setObjectName(QStringLiteral("roamingRefresh"));
    m_roamingTimer.setTimerType(Qt::CoarseTimer); // VeryCoarse would make 0 of less than half a second
    connect(&m_roamingTimer, &QTimer::timeout, this, &KRecentFileLogic::onTimingUpdateRoamingFiles);
    connectStore();
    connectCloud();
}

KRecentFileLogic::~KRecentFileLogic()
{
    m_roamingTimer.stop();
}

void KRecentFileLogic::connectStore()
{
    using Events = KRecentFileEvents;
    Events *events = m_services.events ? m_services.events : RecentFileEventObject();
    connect(events, &Events::historyCleared, this, &KRecentFileLogic::historyCleared);
    connect(events, &Events::keepingChanged, this, &KRecentFileLogic::keepingChanged);
    connect(events, &Events::foldersLeftOut, this, &KRecentFileLogic::foldersLeftOut);
    connect(events, &Events::initFinished, this, &KRecentFileLogic::onRecentRecordInitFinished);
    connect(events, &Events::recordsArrived, this, &KRecentFileLogic::onRecentRecordArrived);
    connect(events, &Events::recordsAdded, this, &KRecentFileLogic::onRecentRecordAdded);
    connect(events, &Events::recordsRemoved, this, &KRecentFileLogic::onRecentRecordRemoved);
    connect(events, &Events::recordsChanged, this, &KRecentFileLogic::onRecentRecordInfoChanged);
    connect(zel::recent::SettingsEvents::instance(), &zel::recent::SettingsEvents::kindMaskChanged, this,
        &KRecentFileLogic::onKindMaskChanged);
}

void KRecentFileLogic::connectCloud()
{
    if (!m_services.cloud)
        return;
    connect(m_services.cloud, &RecentCloud::loginTold, this, &KRecentFileLogic::loginTold);
    connect(m_services.cloud, &RecentCloud::shareEnded, this,
        [this](const RecentFileInfo &record, RecentCloud::Ended ended) {
            if (ended != RecentCloud::Ended::Done)
                Q_EMIT shareNotServed(record);
        });
}

bool KRecentFileLogic::isLoginKnown() const
{
    return !m_services.cloud || m_services.cloud->isLoginKnown();
}

bool KRecentFileLogic::isCloudReached() const
{
    return m_services.cloud && m_services.cloud->isReached();
}

void KRecentFileLogic::setModel(ZelBoxRecentFileModel *model)
{
    m_model = model;
}

ZelBoxRecentFileModel *KRecentFileLogic::model() const
{
    return m_model;
}

bool KRecentFileLogic::isLoggedIn() const
{
    return m_services.cloud && m_services.cloud->isLoggedIn();
}

// Looked up at each use: the process's store comes and goes with InitRecentFile() and UninitRecentFile().
KRecentFileProxy *KRecentFileLogic::store() const
{
    return m_services.store ? m_services.store : KRecentFileProxy::instance();
}

RecentKeeping KRecentFileLogic::keeping() const
{
    return store() ? store()->keeping() : RecentKeeping::Kept;
}

bool KRecentFileLogic::isStoreReady() const
{
    return store() && store()->isKindReady(RecentRecordKind::Roaming);
}

bool KRecentFileLogic::canLoad() const
{
    return m_model && store() && kindMask() != 0;
}

void KRecentFileLogic::loadAll()
{
    KRecentFileProxy *const source = store();
    if (!source)
        return;
    if (!isStoreReady()) {
        source->initKind(RecentRecordKind::Roaming); // its init-finished notice leads back here
        return;
    }
    if (!canLoad())
        return;
    finishWaiting();
    rebuildRows();
}

void KRecentFileLogic::finishWaiting()
{
    if (!m_waitingForFirstLoad)
        return;
    m_waitingForFirstLoad = false;
    const QScopedValueRollback guard(m_reloading, true);
    Q_EMIT firstLoadingFinish();
}

// The store's records, without the kinds that are not shown. Marks that only the present rows have go with
// them; those of records with a roaming id are the store's.
RecordInfoList KRecentFileLogic::shownRecords() const
{
    RecordInfoList records = store()->records();
    if (!std::all_of(records.cbegin(), records.cend(), isShown)) {
        const auto hidden = [](const RecentFileInfo &record) { return !isShown(record); };
        records.erase(std::remove_if(records.begin(), records.end(), hidden), records.end());
    }
    const QHash<QString, int> marks = m_model->unreadMarks();
    if (marks.isEmpty())
        return records;
    for (RecentFileInfo &record : records) {
        if (record.unread == ZelBoxRecentFileModel::NotUnread && record.roamingId.isEmpty())
            record.unread = marks.value(record.id, ZelBoxRecentFileModel::NotUnread);
    }
    return records;
}

void KRecentFileLogic::rebuildRows()
{
    const int unreadBefore = m_model->unreadCount();
    {
        const QScopedValueRollback guard(m_reloading, true);
        m_model->setRecords(shownRecords());
        markPending();
    }
    Q_EMIT itemsBatchArrived(kindMask());
    if (m_model->unreadCount() != unreadBefore)
        onUpdateRecentTabUnreadPoint();
}

// Without any kind there is nothing to load, but there are rows to take away.
void KRecentFileLogic::onKindMaskChanged()
{
    if (!m_model || !isStoreReady() || m_windowNotYetShown)
        return;
    finishWaiting();
    if (kindMask() != 0)
        return rebuildRows();
    m_model->removeAll();
    onUpdateRecentTabUnreadPoint();
}

void KRecentFileLogic::onRecentRecordInitFinished()
{
    loadAll();
}

void KRecentFileLogic::onRecentRecordArrived()
{
    if (canLoad())
        rebuildRows();
}

void KRecentFileLogic::onRecentRecordAdded(const RecordInfoList &records)
{
    if (!m_model)
        return;
    for (const RecentFileInfo &record : records) {
        if (!isShown(record) || m_model->addRecord(record) < 0)
            continue;
        Q_EMIT itemAdded(record);
    }
    markPending();
    onUpdateRecentTabUnreadPoint();
}

void KRecentFileLogic::onRecentRecordRemoved(const RecordInfoList &records)
{
    if (!m_model || m_model->rowCount() == 0 || records.isEmpty())
        return;
    for (const RecentFileInfo &record : records) {
        if (!isShown(record))
            continue;
        const RecentFileInfo answered = askedAbout(record);
        if (m_model->removeRecord(record.id))
            Q_EMIT itemRemoved(answered);
    }
    onUpdateRecentTabUnreadPoint();
}

// Whoever hears of a removed roaming record wants to know whether its file is still there.
RecentFileInfo KRecentFileLogic::askedAbout(const RecentFileInfo &record) const
{
    RecentFileInfo answered = record;
    if (record.kind == RecentRecordKind::Roaming)
        answered.cloudBacked = m_services.cloud && m_services.cloud->isInCloud(record);
    return answered;
}

void KRecentFileLogic::onRecentRecordInfoChanged(const RecordInfoList &records)
{
    if (!m_model)
        return;
    const int unreadBefore = m_model->unreadCount();
    bool rowsCameOrWent = false;
    for (const RecentFileInfo &record : records)
        rowsCameOrWent |= takeChange(record);
    if (rowsCameOrWent)
        markPending();
    if (rowsCameOrWent || m_model->unreadCount() != unreadBefore)
        onUpdateRecentTabUnreadPoint();
}

// A change can also be one of kind, into what is shown or out of it. True when a row came or went.
bool KRecentFileLogic::takeChange(const RecentFileInfo &record)
{
    if (!isShown(record)) {
        if (!m_model->removeRecord(record.id))
            return false;
        Q_EMIT itemRemoved(record);
        return true;
    }
    if (m_model->updateRecord(record)) {
        Q_EMIT itemStateChanged(record);
        return false;
    }
    if (m_model->addRecord(record) < 0)
        return false;
    Q_EMIT itemAdded(record);
    return true;
}

void KRecentFileLogic::onWindowFirstShown()
{
    if (!std::exchange(m_windowNotYetShown, false))
        return;
    const int interval = zel::recent::roamingRefreshInterval();
    if (interval >= 0)
        m_roamingTimer.start(interval);
    if (m_model)
        loadAll();
}

void KRecentFileLogic::onLoginStatusChanged(bool bLogin)
{
    if (!m_model)
        return;
    m_roamingUnread.clear(); // of the user before
    m_pendingRoamingIds.clear();
    if (!bLogin) {
        logOut();
        return;
    }
    if (!QCoreApplication::closingDown() && canLoad()) {
        finishWaiting();
        rebuildRows();
    }
    updateRoaming(false);
}

void KRecentFileLogic::logOut()
{
    m_waitingForFirstLoad = true;
    Q_EMIT needToWaitFirstLoading();
    m_model->removeAll();
    onUpdateRecentTabUnreadPoint();
    loadAll();
    if (isLoggedIn())
        updateRoaming(false);
}

void KRecentFileLogic::onTimingUpdateRoamingFiles()
{
    if (m_model && isLoggedIn())
        updateRoaming(false);
}

// The whole set comes again and again: what it said before has its mark, or lost it by being seen.
void KRecentFileLogic::onRoamingUnreadMsgArrive(const ZELBOX_ROAMING_MSGLIST &idMap)
{
    if (!m_model)
        return;
    const auto result = m_model->markUnread(newsIn(idMap, m_roamingUnread), ZelBoxRecentFileModel::Modified);
    m_roamingUnread = idMap;
    rememberPending(result.unknownIds);
    // Precise: a coarse timer may fire before the service is through with what it told of.
    QTimer::singleShot(m_services.unreadSyncDelay, Qt::PreciseTimer, this,
        &KRecentFileLogic::onUpdateRecentRoamingFileItemsWithSync);
    if (result.changed)
        onUpdateRecentTabUnreadPoint();
}

void KRecentFileLogic::rememberPending(const QStringList &ids)
{
    m_pendingRoamingIds += ids;
    m_pendingRoamingIds.removeDuplicates();
}

// A reported item that gets its row only now has come from another device: it is new here.
void KRecentFileLogic::markPending()
{
    ZELBOX_ROAMING_MSGLIST pending;
    for (const QString &id : std::as_const(m_pendingRoamingIds))
        pending.insert(id, m_roamingUnread.value(id));
    if (!pending.isEmpty())
        m_pendingRoamingIds = m_model->markUnread(pending, ZelBoxRecentFileModel::New).unknownIds;
}

void KRecentFileLogic::onUpdateRecentRoamingFileItemsWithoutSync()
{
    updateRoaming(false);
}

void KRecentFileLogic::onUpdateRecentRoamingFileItemsWithSync()
{
    updateRoaming(true);
}

void KRecentFileLogic::updateRoaming(bool sync)
{
    if (m_model && store())
        store()->requestRoaming(RoamingRequestKind, {}, sync);
}

void KRecentFileLogic::onUpdateRecentTabUnreadPoint()
{
    if (m_model)
        Q_EMIT recentFileUnreadMsgCount(quint64(m_model->unreadCount()));
}
