#include "recentworker.h"

#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/merge/roamingmerge.h"

#include "base/logging.h"

#include <QDateTime>
#include <QMimeDatabase>
#include <QSet>

#include <algorithm>

namespace zel::recent {
namespace {

constexpr int LargestDelta = 5000; // beyond it the whole list is handed over anew
constexpr int FirstRetryMs = 2000;
constexpr int LongestRetryMs = 60000;
constexpr qint64 RemovalLifetimeMs = 180LL * 24 * 3600 * 1000;
constexpr int MostBoxOnly = 10000;

RecentDelta mergeList(const RecentState &state, SourceTable &sources, const XbelImport &import)
{
    const int id = sourceId(sources, import.source);
    if (import.stamp)
        sources[import.source].stamp = *import.stamp;
    if (import.gone)
        sources.remove(import.source);
    return mergeImport(state, id, import.entries, import.intact);
}

} // namespace

RecentWorker::RecentWorker(const RecentPlaces &places, WorkMode mode)
    : m_places(places),
      m_mode(mode),
      m_repository(places.database, [this](RecentKeeping keeping) { Q_EMIT keepingChanged(keeping); }),
      m_looks(places.temporaryFolders),
      m_notes(places.desktopList,
          {[this](const QString &path) { return m_looks.isAwaited(path); },
              [this](QVector<XbelEdit::Visit> &visits) { findMimeTypes(visits); }})
{
    connect(&m_looks, &RecentLooks::found, this, &RecentWorker::keepLooks);
    connect(&m_looks, &RecentLooks::used, this, &RecentWorker::used);
    connect(&m_looks, &RecentLooks::foldersUsed, this, &RecentWorker::leaveOut);
    connect(&m_notes, &DesktopNotes::written, this, &RecentWorker::planRetry);
    m_retry.setSingleShot(true);
    m_retry.setInterval(FirstRetryMs);
    connect(&m_retry, &QTimer::timeout, this, &RecentWorker::tryAgain);
}

RecentWorker::~RecentWorker() = default;

void RecentWorker::open()
{
    if (std::exchange(m_open, true))
        return;
    m_firstList = m_repository.open();
    planRetry();
}

bool RecentWorker::isBehind() const
{
    return m_repository.hasUnwritten() || m_notes.hasFailed();
}

void RecentWorker::planRetry()
{
    if (isBehind() && !m_retry.isActive())
        m_retry.start();
}

void RecentWorker::tryAgain()
{
    const bool wasAway = m_repository.isAway();
    const RecentDelta news = m_repository.writeUnwritten();
    publish(news);
    if (wasAway && !m_repository.isAway()) {
        if (m_roamingUser)
            keepRoamingOf(*m_roamingUser); // the disk's may be of another one
        lookFor(news);
        if (m_importer)
            followLists();
    }
    m_notes.write();
    m_retry.setInterval(isBehind() ? std::min(2 * m_retry.interval(), LongestRetryMs) : FirstRetryMs);
    planRetry();
}

void RecentWorker::prepare()
{
    open();
    m_prepared = !m_firstList.isEmpty() && m_filter.isWhole() && !m_repository.isFresh();
    if (m_prepared)
        Q_EMIT prepared(m_firstList);
}

void RecentWorker::load()
{
    open();
    m_wanted = true;
    // With nothing known yet an empty list would only flash up before the desktop's list has been read.
    if (m_scanned || m_mode == WorkMode::ReadOnly || !m_repository.isFresh())
        handOver();
    if (!m_importer && m_mode == WorkMode::Full)
        followLists();
}

void RecentWorker::handOver()
{
    const bool isKnown = std::exchange(m_prepared, false) && !m_firstList.isEmpty() && m_filter.isWhole();
    RecordInfoList records = std::exchange(m_firstList, {});
    if (records.isEmpty() || !m_filter.isWhole())
        records = m_filter.records(m_repository.state());
    const bool first = !std::exchange(m_handedOver, true);
    if (!isKnown)
        Q_EMIT loaded(records);
    if (!first)
        return;
    const qint64 oldest = QDateTime::currentMSecsSinceEpoch() - RemovalLifetimeMs;
    change([oldest](const RecentState &state, SourceTable &) { return forgetRemovals(state, oldest); },
        Durability::Relaxed);
    change([](const RecentState &state, SourceTable &) { return limitBoxOnly(state, MostBoxOnly); },
        Durability::Relaxed);
    m_looks.lookFor(m_repository.state(), records);
}

void RecentWorker::followLists()
{
    QHash<QString, FileStamp> known;
    for (auto it = m_repository.sources().cbegin(); it != m_repository.sources().cend(); ++it)
        known.insert(it.key(), it->stamp);
    m_importer = std::make_unique<XbelImporter>(m_places, known);
    connect(m_importer.get(), &XbelImporter::imported, this, &RecentWorker::take);
    connect(m_importer.get(), &XbelImporter::scanned, this, [this] {
        m_scanned = true;
        if (m_wanted && !m_handedOver)
            handOver();
        if (m_clearWanted)
            eraseHistory(*std::exchange(m_clearWanted, std::nullopt));
    });
    m_importer->scan();
}

void RecentWorker::take(const XbelImport &import)
{
    XbelImport ours = import;
    ours.entries = withoutForeignPrivate(std::move(ours.entries), QLatin1String(ApplicationName));
    const RecentDelta delta = change(
        [&ours](const RecentState &state, SourceTable &sources) { return mergeList(state, sources, ours); },
        Durability::Relaxed);
    lookFor(delta);
    if (import.source == DesktopSourceName)
        m_notes.plan();
}

RecentDelta RecentWorker::change(const RecentRepository::Operation &operation, Durability durability)
{
    const auto settled = [&operation](const RecentState &state, SourceTable &sources) {
        return settleRoaming(state, operation(state, sources));
    };
    RecentDelta delta = m_repository.change(settled, durability);
    planRetry();
    publish(delta);
    return delta;
}

void RecentWorker::publish(const RecentDelta &delta)
{
    if (!delta.showsNothing())
        m_firstList.clear();
    if (!m_handedOver)
        return;
    const RecentDelta shown = m_filter.visiblePart(delta, m_repository.state());
    if (shown.showsNothing())
        return;
    if (shown.shownCount() > LargestDelta)
        Q_EMIT replaced(m_filter.records(m_repository.state()));
    else
        Q_EMIT updated({{}, {}, shown.added, shown.removed, shown.changed});
}

// Many at one go: each change costs a writing to the disk, and everybody who is told a look at the whole
// list.
void RecentWorker::noteOpened(const QHash<QString, qint64> &times)
{
    open();
    const auto mark = [&times](const RecentState &state, SourceTable &) {
        RecentDelta delta;
        for (auto it = times.cbegin(); it != times.cend(); ++it)
            delta += markOpened(state, it.key(), it.value());
        return delta;
    };
    change(mark, Durability::Full);
    markRead(times.keys()); // seen by opening it
    if (m_mode == WorkMode::ReadOnly)
        return m_looks.lookFor(m_repository.state(), times.keys());
    m_looks.lookForUses(times);
    QVector<XbelEdit::Visit> visits;
    for (auto it = times.cbegin(); it != times.cend(); ++it)
        visits.append({it.key(), QString(), m_repository.state().value(it.key()).openedAt});
    m_notes.addVisits(visits);
}

void RecentWorker::removeRecords(const QStringList &ids)
{
    open();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    change([&](const RecentState &state, SourceTable &) { return markRemoved(state, ids, now); },
        Durability::Full);
    QStringList paths;
    for (const QString &id : ids) {
        if (id.startsWith(QLatin1Char('/')))
            paths.append(id);
    }
    if (m_mode == WorkMode::ReadOnly || paths.isEmpty())
        return;
    m_notes.addRemovals(paths);
}

void RecentWorker::leaveOut(const QStringList &folders)
{
    m_notes.dropVisits(QSet<QString>(folders.cbegin(), folders.cend()));
    Q_EMIT foldersLeftOut(folders);
}

void RecentWorker::findMimeTypes(QVector<XbelEdit::Visit> &visits)
{
    const QMimeDatabase database;
    QHash<QString, QString> found;
    for (XbelEdit::Visit &visit : visits) {
        // By the name, without reading what is in the file.
        const QMimeType type = database.mimeTypeForFile(visit.path, QMimeDatabase::MatchExtension);
        visit.mimeType = m_repository.state().value(visit.path).mimeType;
        if ((type.isDefault() && !visit.mimeType.isEmpty()) || type.name() == visit.mimeType)
            continue;
        visit.mimeType = type.name();
        found.insert(visit.path, visit.mimeType);
    }
    const auto mark = [&found](const RecentState &state, SourceTable &) {
        RecentDelta delta;
        for (auto it = found.cbegin(); it != found.cend(); ++it)
            delta += markMimeType(state, it.key(), it.value());
        return delta;
    };
    if (!found.isEmpty())
        change(mark, Durability::Relaxed);
}

void RecentWorker::setPinned(const QStringList &ids, bool pinned)
{
    open();
    change([&](const RecentState &state, SourceTable &) { return markPinned(state, ids, pinned); },
        Durability::Full);
}

void RecentWorker::setSources(int sources)
{
    if (sources == m_filter.sources())
        return;
    m_prepared = false;
    m_filter.setSources(sources);
    if (m_handedOver)
        Q_EMIT replaced(m_filter.records(m_repository.state()));
}

void RecentWorker::clearHistory(bool serviceListCleared)
{
    open();
    if (m_mode == WorkMode::Full && !m_scanned) {
        m_clearWanted = serviceListCleared;
        if (!m_importer)
            followLists();
        return;
    }
    eraseHistory(serviceListCleared);
}

void RecentWorker::eraseHistory(bool serviceListCleared)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    change([&](const RecentState &state, SourceTable &) { return markRemoved(state, state.keys(), now); },
        Durability::Full);
    bool emptied = m_mode == WorkMode::Full;
    if (emptied) {
        QStringList listed;
        for (const StoredRecord &record : m_repository.state()) {
            if (record.accessOf(DesktopSource))
                listed.append(record.id);
        }
        m_notes.clear();
        m_notes.addRemovals(listed);
        emptied = m_notes.write();
    }
    change([&](const RecentState &state,
               SourceTable &) { return forgetTraces(state, emptied, serviceListCleared); },
        Durability::Full);
    m_repository.wipe();
    Q_EMIT historyCleared(emptied);
}

void RecentWorker::checkPresence(const QStringList &ids)
{
    open();
    m_looks.lookFor(m_repository.state(), ids);
}

void RecentWorker::lookUpSizes()
{
    open();
    m_looks.lookForSizes(m_repository.state());
}

void RecentWorker::lookFor(const RecentDelta &delta)
{
    m_looks.lookFor(m_repository.state(), delta.added);
    m_looks.lookFor(m_repository.state(), delta.changed);
}

void RecentWorker::keepLooks(const FileLooks &looks)
{
    if (!m_looks.marks(m_repository.state(), looks).storesNothing())
        change([&](const RecentState &state, SourceTable &) { return m_looks.marks(state, looks); },
            Durability::Relaxed);
    if (!m_notes.isRefused()) // else it is not the looks that they wait for
        m_notes.plan();
}

void RecentWorker::takeRoaming(const RoamingList &list)
{
    open();
    const RecentDelta delta =
        change([&](const RecentState &state, SourceTable &) { return mergeRoaming(state, list); },
            Durability::Relaxed);
    lookFor(delta);
}

void RecentWorker::keepRoamingOf(const QString &user)
{
    open();
    m_roamingUser = user;
    change([&](const RecentState &state, SourceTable &) { return zel::recent::keepRoamingOf(state, user); },
        Durability::Full);
}

void RecentWorker::markRead(const QStringList &ids)
{
    open();
    if (zel::recent::markRead(m_repository.state(), ids).storesNothing())
        return;
    change([&](const RecentState &state, SourceTable &) { return zel::recent::markRead(state, ids); },
        Durability::Full);
    tellMarks();
}

void RecentWorker::tellMarks()
{
    open();
    const QVector<ReadMark> marks = untoldMarks(m_repository.state());
    if (!marks.isEmpty())
        Q_EMIT marksSeen(marks);
}

void RecentWorker::marksTold(const QVector<ReadMark> &marks)
{
    change(
        [&](const RecentState &state, SourceTable &) { return markTold(state, marks); }, Durability::Relaxed);
}

void RecentWorker::finish()
{
    if (m_importer)
        m_importer->stop();
    m_retry.stop();
    m_looks.end();
    if (m_clearWanted)
        eraseHistory(*std::exchange(m_clearWanted, std::nullopt));
    m_notes.write();
    m_repository.close();
}

} // namespace zel::recent
