#include "driveindex.h"

#include "base/logging.h"

#include <algorithm>

namespace zel::service {
namespace {

using sqlite::Statement;

constexpr char SelectRecord[] = "SELECT id, parent, name, is_folder, device, inode, birth_ns, size, mtime_ns,"
                                " ctime_ns, state FROM drive_item WHERE ";
// An item and all below it; what lies in the trash no longer belongs to the folder it came from.
#define ZEL_DRIVE_TREE                                                                                       \
    "WITH RECURSIVE tree(id) AS (SELECT ?1 UNION SELECT i.id FROM drive_item i JOIN tree ON i.parent = "     \
    "tree.id WHERE i.state <> 2) "

DriveRecord toRecord(const Statement &row)
{
    DriveRecord record;
    record.id = row.number(0);
    record.parent = row.number(1);
    record.entry.name = row.text(2);
    record.entry.isFolder = row.number(3) != 0;
    record.entry.identity = {quint64(row.number(4)), quint64(row.number(5)), row.number(6)};
    record.entry.size = row.number(7);
    record.entry.mtimeNs = row.number(8);
    record.entry.ctimeNs = row.number(9);
    record.state = DriveRecord::State(row.number(10));
    return record;
}

std::optional<DriveRecord> first(Statement &statement)
{
    if (!statement.step())
        return {};
    return toRecord(statement);
}

QVector<DriveRecord> all(Statement &statement)
{
    QVector<DriveRecord> records;
    while (statement.step())
        records.append(toRecord(statement));
    return records;
}

QByteArray select(const char *condition)
{
    return QByteArray(SelectRecord) + condition;
}

void bindRecord(Statement &statement, const DriveRecord &record)
{
    const disk::Entry &entry = record.entry;
    statement.bind(1, record.parent).bind(2, entry.name).bind(3, entry.name.toCaseFolded());
    statement.bind(4, qint64(entry.isFolder)).bind(5, qint64(entry.identity.device));
    statement.bind(6, qint64(entry.identity.inode)).bind(7, entry.identity.birthNs).bind(8, entry.size);
    statement.bind(9, entry.mtimeNs).bind(10, entry.ctimeNs).bind(11, qint64(record.state));
}

} // namespace

DriveError databaseError(const sqlite::Database &database)
{
    DriveError error{DriveError::Kind::Io, database.failureText()};
    if (database.ranOutOfSpace())
        error.kind = DriveError::Kind::DiskFull;
    return error;
}

void DriveIndex::passOver()
{
    if (failed() && !std::exchange(m_toldBehind, true))
        qCWarning(lcService, "drive: the index is behind: %s", qUtf8Printable(m_database.failureText()));
    m_database.clearFailure();
}

std::optional<DriveRecord> DriveIndex::find(qint64 id)
{
    Statement statement(m_database, select("id = ?").constData());
    return first(statement.bind(1, id));
}

std::optional<DriveRecord> DriveIndex::child(qint64 parent, const QString &name)
{
    Statement statement(m_database, select("parent = ? AND name = ? AND state = 0").constData());
    return first(statement.bind(1, parent).bind(2, name));
}

QVector<DriveRecord> DriveIndex::children(qint64 parent)
{
    Statement statement(m_database, select("parent = ? AND state = 0").constData());
    return all(statement.bind(1, parent));
}

Statement &DriveIndex::keep(Kept &statement, const char *sql)
{
    if (m_stale) {
        m_withInode.reset();
        m_add.reset();
        m_journal.reset();
    }
    if (!statement)
        statement = std::make_unique<Statement>(m_database, sql);
    m_stale = failed();
    return *statement;
}

QVector<DriveRecord> DriveIndex::withInode(quint64 inode)
{
    Statement &statement = keep(m_withInode, select("inode = ? AND state <> 2").constData());
    QVector<DriveRecord> records = all(statement.bind(1, qint64(inode)));
    statement.run(); // ready for the next time
    return records;
}

QVector<DriveRecord> DriveIndex::chain(qint64 id)
{
    QVector<DriveRecord> steps;
    while (id != 0) {
        const auto record = find(id);
        // The bound also ends a ring, which moves made by others can leave until all folders were read again.
        if (!record || record->state != DriveRecord::State::Present || steps.size() > disk::DeepestFolder)
            return {};
        steps.append(*record);
        id = record->parent;
    }
    std::reverse(steps.begin(), steps.end());
    return steps;
}

DriveRecord DriveIndex::add(qint64 parent, const disk::Entry &entry)
{
    DriveRecord record;
    record.parent = parent;
    record.entry = entry;
    Statement &statement = keep(m_add,
        "INSERT INTO drive_item(parent, name, folded, is_folder, device, inode, birth_ns, size, mtime_ns,"
        " ctime_ns, state) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    bindRecord(statement, record);
    statement.run();
    record.id = m_database.lastRowId();
    journal(DriveChange::Kind::Created, record);
    return record;
}

void DriveIndex::update(const DriveRecord &record)
{
    Statement statement(m_database,
        "UPDATE drive_item SET parent = ?, name = ?, folded = ?, is_folder = ?, device = ?, inode = ?,"
        " birth_ns = ?, size = ?, mtime_ns = ?, ctime_ns = ?, state = ? WHERE id = ?");
    bindRecord(statement, record);
    statement.bind(12, record.id).run();
}

void DriveIndex::moved(const DriveRecord &record)
{
    update(record);
    journal(DriveChange::Kind::Moved, record);
}

void DriveIndex::modified(const DriveRecord &record)
{
    update(record);
    // One line for a file that is saved again and again.
    Statement(m_database, "DELETE FROM drive_change WHERE item = ? AND kind = ?")
        .bind(1, record.id)
        .bind(2, qint64(DriveChange::Kind::Modified))
        .run();
    journal(DriveChange::Kind::Modified, record);
}

void DriveIndex::setState(qint64 id, DriveRecord::State state)
{
    Statement(m_database, "UPDATE drive_item SET state = ? WHERE id = ?")
        .bind(1, qint64(state))
        .bind(2, id)
        .run();
}

void DriveIndex::journal(DriveChange::Kind kind, const DriveRecord &record)
{
    keep(m_journal, "INSERT INTO drive_change(kind, item, parent, name, is_folder) VALUES(?, ?, ?, ?, ?)")
        .bind(1, qint64(kind))
        .bind(2, record.id)
        .bind(3, record.parent)
        .bind(4, record.entry.name)
        .bind(5, qint64(record.entry.isFolder))
        .run();
}

void DriveIndex::journalTree(DriveChange::Kind kind, qint64 id)
{
    Statement(m_database,
        ZEL_DRIVE_TREE
        "INSERT INTO drive_change(kind, item, parent, name, is_folder) SELECT ?2, i.id, i.parent,"
        " i.name, i.is_folder FROM tree JOIN drive_item i USING(id)")
        .bind(1, id)
        .bind(2, qint64(kind))
        .run();
}

void DriveIndex::removeTree(qint64 id)
{
    Statement(m_database, ZEL_DRIVE_TREE "DELETE FROM drive_item WHERE id IN (SELECT id FROM tree)")
        .bind(1, id)
        .run();
}

QVector<qint64> DriveIndex::missing(qint64 parent)
{
    QVector<qint64> ids;
    Statement rows(m_database, "SELECT id FROM drive_item WHERE state = 1 AND (?1 = 0 OR parent = ?1)");
    rows.bind(1, parent);
    while (rows.step())
        ids.append(rows.number(0));
    return ids;
}

void DriveIndex::dropMissing(qint64 id)
{
    const auto record = find(id);
    if (!record || record->state != DriveRecord::State::Missing)
        return;
    journalTree(DriveChange::Kind::Removed, id);
    removeTree(id);
}

qint64 DriveIndex::totalSize()
{
    return m_database.number("SELECT coalesce(sum(size), 0) FROM drive_item WHERE state <> 1");
}

} // namespace zel::service
