#pragma once

#include "base/sqlite/database.h"
#include "service/drive/driveclaim.h"
#include "service/drive/drivedisk.h"

#include <memory>
#include <optional>

namespace zel::service {

/// What the drive knows of an item.
struct DriveRecord
{
    enum class State {
        Present = 0,
        Missing = 1, ///< no longer at its place; may turn up elsewhere, then it keeps its id
        Trashed = 2,
    };

    qint64 id = 0;
    qint64 parent = 0; ///< 0 for the root
    disk::Entry entry; ///< as last seen
    State state = State::Present;
};

DriveError databaseError(const sqlite::Database &database); ///< of its failure

/// The drive's items and their ids in the database, and the journal of what happened to them. Failures stay
/// in the database; whoever begins an operation clears them, whoever ends it asks. The drive's thread, under
/// its hold, reading alone excepted.
class DriveIndex
{
public:
    static constexpr qint64 RootId = 1;

    DriveIndex(sqlite::Database &database, DriveClaim &claim) : m_database(database), m_claim(claim) { }

    DriveHold hold() { return DriveHold(m_claim); }
    DriveClaim &claim() { return m_claim; }

    sqlite::Database &database() { return m_database; }
    bool failed() const { return m_database.failure() != sqlite::Failure::None; }
    DriveError error() const { return databaseError(m_database); }
    /// Forgets a failure to write what the disk tells again: what was done there stays done. The log has it.
    void passOver();

    std::optional<DriveRecord> find(qint64 id);
    std::optional<DriveRecord> child(qint64 parent, const QString &name);
    QVector<DriveRecord> children(qint64 parent);
    QVector<DriveRecord> withInode(quint64 inode);
    /// The root first, the item last; empty when it, or a folder above it, is not there.
    QVector<DriveRecord> chain(qint64 id);

    /// These write one step each; put them into a transaction.
    DriveRecord add(qint64 parent, const disk::Entry &entry);
    void update(const DriveRecord &record); ///< all but id and journal
    void moved(const DriveRecord &record);  ///< update(), told as a move
    void modified(const DriveRecord &record);
    void setState(qint64 id, DriveRecord::State state);
    /// Tells of an item and everything below it.
    void journalTree(DriveChange::Kind kind, qint64 id);
    void removeTree(qint64 id);
    /// Ids of what is missing from this folder; 0: from any.
    QVector<qint64> missing(qint64 parent = 0);
    void dropMissing(qint64 id); ///< it is gone for good, if it is missing still

    /// Present items and those in the trash.
    qint64 totalSize();

private:
    using Kept = std::unique_ptr<sqlite::Statement>;

    void journal(DriveChange::Kind kind, const DriveRecord &record);
    sqlite::Statement &keep(Kept &statement, const char *sql);

    sqlite::Database &m_database;
    DriveClaim &m_claim;
    // Of the many steps when a folder is read for the first time; preparing them costs more than running
    // them.
    Kept m_withInode;
    Kept m_add;
    Kept m_journal;
    bool m_toldBehind = false;
    bool m_stale = false; ///< one of them may not have been prepared
};

} // namespace zel::service
