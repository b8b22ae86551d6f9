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
constexpr int RetryMs = 2000;
constexpr qint64 RemovalLifetimeMs = 180LL * 24 * 3600 * 1000;
constexpr int MostBoxOnly = 10000;

int sourceId(SourceTable &sources, const QString &name)
{
    int next = DesktopSource;
    for (const SourceInfo &source : std::as_const(sources))
        next = std::max(next, source.id);
    SourceInfo &source = sources[name];
    if (source.id == 0)
        source.id = name == DesktopSourceName ? DesktopSource : next + 1;
    return source.id;
}

RecentDelta mergeList(const RecentState &state, SourceTable &sources, const XbelImport &import)
{
    const int id = sourceId(sources, import.source);
    if (import.stamp)
        sources[import.source].stamp = *import.stamp;
    if (import.gone)
        sources.remove(import.source);
    return mergeImport(state, id, import.entries, import.intact);
}

// Null: there is none.
const char *problemText(XbelEditResult result)
{
    switch (result) {
    case XbelEditResult::Damaged:
        return "it is damaged";
    case XbelEditResult::Unsupported:
        return "it is not in UTF-8 or has entities of its own";
    case XbelEditResult::Failed:
        return "it cannot be read or written";
    case XbelEditResult::Written:
    case XbelEditResult::Unchanged:
        break;
    }
    return nullptr;
}

} // namespace

RecentWorker::RecentWorker(const RecentPlaces &places, WorkMode mode)
    : m_places(places),
      m_mode(mode),
      m_repository(places.database, [this](const QString &text) { Q_EMIT problem(text); }),
      m_looks(places.temporaryFolders)
{
    connect(&m_looks, &RecentLooks::found, this, &RecentWorker::keepLooks);
    connect(&m_looks, &RecentLooks::used, this, &RecentWorker::used);
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryMs);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        publish(m_repository.writeUnwritten());
        if (m_repository.isBusy())
            m_retry.start();
    });
}

RecentWorker::~RecentWorker() = default;

void RecentWorker::open()
{
    if (!std::exchange(m_open, true))
        m_firstList = m_repository.open();
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
    RecordInfoList records = std::exchange(m_firstList, {});
    if (records.isEmpty() || !m_filter.isWhole())
        records = m_filter.records(m_repository.state());
    const bool first = !std::exchange(m_handedOver, true);
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
}

RecentDelta RecentWorker::change(const RecentRepository::Operation &operation, Durability durability)
{
    const auto settled = [&operation](const RecentState &state, SourceTable &sources) {
        return settleRoaming(state, operation(state, sources));
    };
    RecentDelta delta = m_repository.change(settled, durability);
    if (m_repository.isBusy())
        m_retry.start();
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
    auto &visits = m_edit.visits;
    const auto again = [&](const XbelEdit::Visit &visit) { return times.contains(visit.path); };
    visits.erase(std::remove_if(visits.begin(), visits.end(), again), visits.end());
    for (auto it = times.cbegin(); it != times.cend(); ++it)
        visits.append({it.key(), QString(), m_repository.state().value(it.key()).openedAt});
    const auto isBack = [&times](const QString &path) { return times.contains(path); };
    auto &removals = m_edit.removals;
    removals.erase(std::remove_if(removals.begin(), removals.end(), isBack), removals.end());
    planDesktopList();
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
    auto &visits = m_edit.visits;
    const QSet<QString> removed(paths.cbegin(), paths.cend());
    const auto gone = [&](const XbelEdit::Visit &visit) { return removed.contains(visit.path); };
    visits.erase(std::remove_if(visits.begin(), visits.end(), gone), visits.end());
    m_edit.removals += paths;
    planDesktopList();
}

// Several notes in a row make one rewriting of the list.
void RecentWorker::planDesktopList()
{
    if (!std::exchange(m_editPlanned, true))
        QMetaObject::invokeMethod(this, &RecentWorker::writeDesktopList, Qt::QueuedConnection);
}

bool RecentWorker::writeDesktopList()
{
    m_editPlanned = false;
    XbelEdit edit = std::exchange(m_edit, {});
    if (edit.isEmpty())
        return true;
    findMimeTypes(edit.visits);
    const XbelEditResult result = editXbel(m_places.desktopList, edit);
    const char *problem = problemText(result);
    if (problem && !m_editFailed)
        qCWarning(lcRecent) << "the desktop's recently-used list was not written:" << problem;
    m_editFailed = problem;
    return !problem;
}

void RecentWorker::findMimeTypes(QVector<XbelEdit::Visit> &visits)
{
    const QMimeDatabase database;
    QHash<QString, QString> found;
    for (XbelEdit::Visit &visit : visits) {
        // By the name and whether it is a folder, without reading what is in the file.
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
    const auto isFolder = [](const XbelEdit::Visit &v) {
        return v.mimeType == QLatin1String("inode/directory");
    };
    visits.erase(std::remove_if(visits.begin(), visits.end(), isFolder), visits.end());
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
    const QStringList ids = m_repository.state().keys();
    change([&](const RecentState &state, SourceTable &) { return markRemoved(state, ids, now); },
        Durability::Full);
    bool emptied = m_mode == WorkMode::Full;
    if (emptied) {
        m_edit = {};
        for (const StoredRecord &record : m_repository.state()) {
            if (record.accessOf(DesktopSource))
                m_edit.removals.append(record.id);
        }
        emptied = writeDesktopList();
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
    if (m_clearWanted)
        eraseHistory(*std::exchange(m_clearWanted, std::nullopt));
    writeDesktopList();
    m_looks.end();
    m_repository.close();
}

} // namespace zel::recent
