#include "drivejournal.h"

#include "base/sqlite/database.h"
#include "driveindex.h"

#include <QStringList>

namespace zel::service {
namespace {

using sqlite::Statement;

constexpr char EpochSql[] = "SELECT value FROM drive_meta WHERE key = 'epoch'";
constexpr char FloorSql[] = "SELECT value FROM drive_meta WHERE key = 'floor'";
constexpr char LastSql[] = "SELECT seq FROM sqlite_sequence WHERE name = 'drive_change'";

} // namespace

QString driveIdText(qint64 id)
{
    if (id <= DriveIndex::RootId)
        return id == DriveIndex::RootId ? QStringLiteral("root") : QString();
    return QString::number(id);
}

qint64 driveIdNumber(const QString &id)
{
    if (id == QLatin1String("root"))
        return DriveIndex::RootId;
    bool ok = false;
    const qint64 number = id.toLongLong(&ok);
    return ok && number > DriveIndex::RootId && driveIdText(number) == id ? number : -1;
}

std::optional<qint64> DriveJournal::position(const QString &cursor)
{
    const QStringList parts = cursor.split(QLatin1Char('-'));
    bool ok = false;
    const qint64 number = parts.last().toLongLong(&ok);
    if (!ok || parts.size() != 2 || parts.first() != QString::number(m_database.number(EpochSql)))
        return {};
    if (number < m_database.number(FloorSql) || number > qMax<qint64>(m_database.number(LastSql), 0))
        return {};
    return number;
}

DriveChanges DriveJournal::since(const QString &cursor)
{
    DriveChanges result;
    const auto from = position(cursor);
    const qint64 last = qMax<qint64>(m_database.number(LastSql), 0);
    result.cursor = QStringLiteral("%1-%2").arg(m_database.number(EpochSql)).arg(last);
    result.reset = !from;
    if (!from)
        return result;
    Statement rows(m_database,
        "SELECT kind, item, parent, name, is_folder FROM drive_change WHERE seq > ? ORDER BY seq");
    rows.bind(1, *from);
    while (rows.step()) {
        result.changes.append({DriveChange::Kind(rows.number(0)), driveIdText(rows.number(1)),
            driveIdText(rows.number(2)), rows.text(3), rows.number(4) != 0});
    }
    return result;
}

void DriveJournal::trim()
{
    const qint64 floor = m_database.number(LastSql) - MostChanges;
    if (floor <= m_database.number(FloorSql))
        return;
    sqlite::Transaction transaction(m_database);
    Statement(m_database, "DELETE FROM drive_change WHERE seq <= ?").bind(1, floor).run();
    Statement(m_database, "UPDATE drive_meta SET value = ? WHERE key = 'floor'").bind(1, floor).run();
    transaction.commit();
}

} // namespace zel::service
