#include "recentrepository.h"

#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/records/recentlist.h"
#include "recentschema.h"

#include "base/logging.h"
#include "base/paths.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <fcntl.h>
#include <malloc.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

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

// Nobody else need know what was opened. The database's companions get its mode when they are made. Without
// opening an existing one: closing it again would take away the locks that this process has on it.
void makePrivate(const QString &file)
{
    const int made =
        ::open(QFile::encodeName(file).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    if (made >= 0)
        ::close(made);
    for (const char *suffix : {"", "-wal", "-shm"}) {
        const QByteArray path = QFile::encodeName(file + QLatin1String(suffix));
        struct stat status
        {
        };
        const bool ours =
            ::stat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
        if (ours && (status.st_mode & 077) != 0)
            ::chmod(path.constData(), 0600);
    }
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

RecentRepository::RecentRepository(const QString &file, ProblemHandler onProblem)
    : m_file(file), m_onProblem(std::move(onProblem))
{
}

RecordInfoList RecentRepository::open()
{
    QElapsedTimer watch;
    watch.start();
    paths::makeFolderOf(m_file);
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
        m_storedSources = sources;
        apply(m_state, rows);
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
    m_busy = failure == Failure::Busy;
    switch (failure) {
    case Failure::None:
        break;
    case Failure::Busy:
        qCWarning(lcRecent) << "database busy," << m_unwritten.size() << "changes wait";
        break;
    case Failure::Damaged:
        if (++m_repairs > MostRepairs) {
            loseDatabase();
            break;
        }
        setAside(why);
        if (openDatabase(true))
            writeEverything();
        break;
    case Failure::Unavailable:
        if (!std::exchange(m_memoryTold, true)) {
            qCWarning(lcRecent) << "changes cannot be written," << why;
            m_onProblem(QStringLiteral("recent files cannot be written, ") + why);
        }
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
            return;
        }
    }
    m_connection.clearFailure();
    for (const StoredRecord &record : std::as_const(m_state))
        m_unwritten.insert(record.id, record);
}

void RecentRepository::setAside(const QString &why)
{
    m_connection.close();
    const QString kept = paths::keepAside(m_file);
    for (const char *suffix : {"-wal", "-shm"}) {
        const QString beside = m_file + QLatin1String(suffix);
        if (!kept.isEmpty() && QFileInfo::exists(beside))
            QFile::rename(beside, kept + QLatin1String(suffix));
    }
    const QString text = QStringLiteral("recent database unusable (") + why
        + QStringLiteral("), kept aside as ") + QFileInfo(kept).fileName();
    qCWarning(lcRecent).noquote() << text;
    if (!std::exchange(m_damageTold, true))
        m_onProblem(text);
}

void RecentRepository::loseDatabase()
{
    const QString why = m_connection.failureText();
    m_connection.close();
    if (std::exchange(m_memoryTold, true))
        return;
    qCWarning(lcRecent).noquote() << "no database, working in memory," << why;
    m_onProblem(QStringLiteral("recent files cannot be kept, ") + why);
}

RecentDelta RecentRepository::writeUnwritten()
{
    if (!hasUnwritten())
        return {};
    return change([](const RecentState &, SourceTable &) { return RecentDelta(); }, Durability::Full);
}

void RecentRepository::wipe()
{
    if (m_connection.isOpen()) {
        m_connection.exec("VACUUM");
        m_connection.number("PRAGMA wal_checkpoint(TRUNCATE)");
        if (m_connection.failure() != Failure::None)
            qCInfo(lcRecent) << "erased records stay in unused parts of the database,"
                             << m_connection.failureText();
        m_connection.clearFailure();
    }
    const QFileInfo place(m_file);
    const QString copies = place.fileName() + QStringLiteral(".damaged-*");
    for (const QFileInfo &copy : place.dir().entryInfoList({copies}, QDir::Files))
        QFile::remove(copy.filePath());
}

void RecentRepository::releaseMemory()
{
    if (m_connection.isOpen())
        ::sqlite3_db_release_memory(m_connection.handle());
    ::malloc_trim(0); // what this thread has freed
}

void RecentRepository::close()
{
    if (!m_connection.isOpen())
        return;
    writeUnwritten();
    m_connection.close();
}

} // namespace zel::recent
