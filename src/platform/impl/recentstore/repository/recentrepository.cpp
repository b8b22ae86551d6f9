#include "recentrepository.h"

#include "databasefiles.h"
#include "platform/impl/recentstore/merge/memorymerge.h"
#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/records/recentlist.h"
#include "recentschema.h"

#include "base/logging.h"
#include "base/paths.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>

#include <malloc.h>
#include <sqlite3.h>

namespace zel::recent {
namespace {

using sqlite::Failure;

constexpr int MostRepairs = 3; // in one session; a medium that damages every file is left alone

StoredRecord nothingOf(const StoredRecord &record)
{
    StoredRecord nothing;
    nothing.id = record.id;
    nothing.rowId = record.rowId;
    return nothing;
}

// Of a damaged database only what cannot be had again from the lists is worth carrying over.
QVector<StoredRecord> salvaged(const QVector<StoredRecord> &records)
{
    QVector<StoredRecord> kept;
    for (StoredRecord record : records) {
        record.rowId = 0;
        record.accesses.clear();
        record.roaming = {};
        if (!record.isRoamingOnly() && record.isNeeded())
            kept.append(record);
    }
    return kept;
}

} // namespace

RecentRepository::RecentRepository(const QString &file, KeepingHandler onKeepingChanged)
    : m_file(file), m_onKeepingChanged(std::move(onKeepingChanged))
{
}

RecordInfoList RecentRepository::open()
{
    QElapsedTimer watch;
    watch.start();
    QVector<StoredRecord> records;
    if (openDatabase() && !loadAll(records, m_sources)) {
        const bool damaged = m_connection.failure() == Failure::Damaged;
        m_sources.clear();
        records = salvaged(records);
        startWith(records);
        if (damaged)
            handleFailure();
        else
            loseDatabase();
        return visibleRecords(m_state);
    }
    m_storedSources = m_sources;
    RecordInfoList shown = startWith(records);
    qCInfo(lcRecent) << "loaded" << shown.size() << "records in" << watch.elapsed() << "ms";
    return shown;
}

bool RecentRepository::openDatabase(bool again)
{
    paths::makeFolderOf(m_file);
    const QFileInfo place(m_file);
    if (place.exists() && !place.isFile() && !again) {
        setAside(QStringLiteral("not a file"));
        return openDatabase(true);
    }
    makePrivate(m_file);
    sqlite::SchemaState state = sqlite::SchemaState::Failed;
    if (m_connection.open(m_file))
        state = prepareSchema(m_connection);
    if (state == sqlite::SchemaState::Ready)
        return true;
    const bool unusable = state == sqlite::SchemaState::Newer || m_connection.failure() == Failure::Damaged;
    if (!unusable || again) {
        loseDatabase();
        return false;
    }
    setAside(state == sqlite::SchemaState::Newer ? QStringLiteral("made by a newer version")
                                                 : m_connection.failureText());
    return openDatabase(true);
}

bool RecentRepository::loadAll(QVector<StoredRecord> &records, SourceTable &sources)
{
    m_dataVersion = m_database.dataVersion();
    records = m_database.load();
    sources = m_database.loadSources();
    return m_connection.failure() == Failure::None;
}

RecordInfoList RecentRepository::startWith(const QVector<StoredRecord> &records)
{
    RecordInfoList shown;
    shown.reserve(records.size());
    m_state.clear();
    m_state.reserve(records.size());
    for (const StoredRecord &record : records) {
        if (record.isVisible())
            shown.append(record.toInfo());
        m_state.insert(record.id, record);
    }
    return shown;
}

RecentDelta RecentRepository::change(const Operation &operation, Durability durability)
{
    if (m_connection.isOpen()) {
        RecentDelta delta = store(operation, durability);
        if (m_connection.failure() != Failure::None)
            handleFailure();
        return delta;
    }
    RecentDelta delta = operation(m_state, m_sources);
    apply(m_state, delta);
    return delta;
}

RecentDelta RecentRepository::store(const Operation &operation, Durability durability)
{
    m_connection.exec(
        durability == Durability::Full ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=NORMAL");
    sqlite::Transaction transaction(m_connection);
    const std::optional<RecentState> before = takeInOthersChanges();
    SourceTable sources = m_sources;
    RecentDelta delta = operation(m_state, sources);
    const bool idle = delta.storesNothing() && m_unwritten.isEmpty() && sources == m_storedSources;
    RecentDelta rows = delta;
    if (idle || (write(rows, sources) && transaction.commit())) {
        m_unwritten.clear();
        m_busy = m_busy && m_connection.failure() != Failure::None;
        m_storedSources = sources;
        apply(m_state, rows);
        if (!idle)
            tellKept(true);
    } else {
        keepUnwritten(delta);
        apply(m_state, delta);
    }
    m_sources = sources;
    return before ? difference(*before, m_state) : delta;
}

std::optional<RecentState> RecentRepository::takeInOthersChanges()
{
    if (m_connection.failure() != Failure::None || m_database.dataVersion() == m_dataVersion)
        return {};
    QVector<StoredRecord> records;
    SourceTable sources;
    if (!loadAll(records, sources))
        return {};
    RecentState before = std::move(m_state);
    startWith(records);
    m_sources = sources;
    m_storedSources = sources;
    for (StoredRecord &mine : m_unwritten) {
        mine = combined(m_state.value(mine.id), mine);
        m_state.insert(mine.id, mine);
    }
    return before;
}

bool RecentRepository::write(RecentDelta &delta, const SourceTable &sources)
{
    for (const StoredRecord &erased : std::as_const(delta.erased))
        m_unwritten.remove(erased.id);
    for (const StoredRecord &stored : std::as_const(delta.stored))
        m_unwritten.remove(stored.id);
    for (const StoredRecord &record : std::as_const(m_unwritten))
        (record.isNeeded() ? delta.stored : delta.erased).append(record);
    m_database.erase(delta.erased);
    m_database.write(delta.stored);
    if (sources != m_storedSources)
        m_database.writeSources(sources);
    return m_connection.failure() == Failure::None;
}

void RecentRepository::keepUnwritten(const RecentDelta &delta)
{
    for (const StoredRecord &record : delta.stored)
        m_unwritten.insert(record.id, record);
    for (const StoredRecord &record : delta.erased)
        m_unwritten.insert(record.id, nothingOf(record));
}

void RecentRepository::handleFailure()
{
    const Failure failure = m_connection.failure();
    const QString why = m_connection.failureText();
    m_connection.clearFailure();
    const bool stillBusy = std::exchange(m_busy, failure == Failure::Busy) && m_busy;
    switch (failure) {
    case Failure::None:
        break;
    case Failure::Busy:
        qCWarning(lcRecent) << "database busy," << m_unwritten.size() << "changes wait";
        if (stillBusy && hasUnwritten())
            tellKept(false);
        break;
    case Failure::Damaged:
        if (m_repairs >= MostRepairs) {
            loseDatabase();
            break;
        }
        setAside(why);
        if (openDatabase(true))
            writeEverything();
        break;
    case Failure::Unavailable:
        if (!hasUnwritten())
            break; // nobody has lost anything, and nothing would tell when it is well again
        if (m_toldKept)
            qCWarning(lcRecent) << "changes cannot be written," << why;
        tellKept(false);
        break;
    }
}

void RecentRepository::writeEverything()
{
    RecentDelta everything;
    for (StoredRecord &record : m_state) {
        record.rowId = 0;
        everything.stored.append(record);
    }
    m_unwritten.clear();
    m_storedSources.clear();
    {
        sqlite::Transaction transaction(m_connection);
        m_database.write(everything.stored);
        m_database.writeSources(m_sources);
        if (transaction.commit()) {
            m_dataVersion = m_database.dataVersion();
            m_storedSources = m_sources;
            apply(m_state, everything);
            tellKept(true);
            return;
        }
    }
    m_connection.clearFailure();
    for (const StoredRecord &record : std::as_const(m_state))
        m_unwritten.insert(record.id, record);
}

void RecentRepository::setAside(const QString &why)
{
    ++m_repairs;
    m_connection.close();
    const QString kept = keepDatabaseAside(m_file);
    const QString text = QStringLiteral("recent database unusable (") + why
        + QStringLiteral("), kept aside as ") + QFileInfo(kept).fileName();
    qCWarning(lcRecent).noquote() << text;
    if (!std::exchange(m_damageTold, true))
        m_onKeepingChanged(RecentKeeping::MadeAnew);
}

void RecentRepository::loseDatabase()
{
    const QString why = m_connection.failureText();
    m_connection.close();
    m_away = m_repairs < MostRepairs;
    if (m_toldKept)
        qCWarning(lcRecent).noquote() << "no database, working in memory," << why;
    tellKept(false);
}

void RecentRepository::tellKept(bool kept)
{
    if (std::exchange(m_toldKept, kept) == kept)
        return;
    if (kept)
        qCInfo(lcRecent) << "everything is on disk again";
    m_onKeepingChanged(kept ? RecentKeeping::Kept : RecentKeeping::NotKept);
}

RecentDelta RecentRepository::writeUnwritten()
{
    if (m_away)
        return comeBack();
    if (!hasUnwritten())
        return {};
    const RecentDelta delta =
        change([](const RecentState &, SourceTable &) { return RecentDelta(); }, Durability::Full);
    if (m_wipeOwed && !hasUnwritten())
        wipe();
    return delta;
}

RecentDelta RecentRepository::comeBack()
{
    m_away = false;
    if (!openDatabase())
        return {};
    QVector<StoredRecord> records;
    SourceTable sources;
    if (!loadAll(records, sources)) {
        if (m_connection.failure() == Failure::Damaged)
            handleFailure(); // what is in memory makes the new one
        else
            loseDatabase();
        if (m_wipeOwed && !hasUnwritten())
            wipe();
        return {};
    }
    const RecentState memory = std::exchange(m_state, {});
    const SourceTable memorySources = std::exchange(m_sources, sources);
    startWith(records);
    m_storedSources = sources;
    m_unwritten.clear();
    if (m_wipeOwed)
        forgetAll();
    const auto join = [&](const RecentState &state, SourceTable &all) {
        return mergeMemory(state, all, memory, memorySources, QDateTime::currentMSecsSinceEpoch());
    };
    change(join, Durability::Full);
    if (m_wipeOwed && !hasUnwritten())
        wipe();
    if (!hasUnwritten())
        tellKept(true);
    return difference(memory, m_state);
}

// All that the database has from before.
void RecentRepository::forgetAll()
{
    const auto remove = [](const RecentState &state, SourceTable &) {
        return markRemoved(state, state.keys(), QDateTime::currentMSecsSinceEpoch());
    };
    change(remove, Durability::Full);
    change([](const RecentState &state, SourceTable &) { return forgetTraces(state, false, false); },
        Durability::Full);
}

void RecentRepository::wipe()
{
    m_wipeOwed = hasUnwritten();
    if (m_connection.isOpen()) {
        m_connection.exec("VACUUM");
        m_connection.number("PRAGMA wal_checkpoint(TRUNCATE)");
        if (m_connection.failure() != Failure::None)
            qCInfo(lcRecent) << "erased records stay in unused parts of the database,"
                             << m_connection.failureText();
        m_connection.clearFailure();
    }
    removeKeptAside(m_file);
}

void RecentRepository::releaseMemory()
{
    if (m_connection.isOpen())
        ::sqlite3_db_release_memory(m_connection.handle());
    ::malloc_trim(0); // what this thread has freed
}

void RecentRepository::close()
{
    writeUnwritten();
    m_away = false;
    m_connection.close();
}

} // namespace zel::recent
