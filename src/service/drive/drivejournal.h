#pragma once

#include "service/drive/drivetypes.h"

#include <optional>

namespace zel::sqlite {
class Database;
}

namespace zel::service {

/// Reads the journal that DriveIndex writes. Failures stay in the database. The drive's thread.
class DriveJournal
{
public:
    static constexpr int MostChanges = 20000; ///< older ones are forgotten; see DriveChanges::reset

    explicit DriveJournal(sqlite::Database &database) : m_database(database) { }

    DriveChanges since(const QString &cursor);
    void trim();

private:
    std::optional<qint64> position(const QString &cursor);

    sqlite::Database &m_database;
};

/// Ids as the drive's users see them.
QString driveIdText(qint64 id);
qint64 driveIdNumber(const QString &id); ///< -1 when it is none

} // namespace zel::service
