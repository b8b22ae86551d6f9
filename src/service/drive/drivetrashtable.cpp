#include "drivetrashtable.h"

#include "drivejournal.h"

namespace zel::service {

qint64 DriveTrashTable::add(const DriveTrashRow &row)
{
    sqlite::Statement(m_index.database(),
        "INSERT INTO drive_trash(item, parent, folder, name, is_folder, size, deleted_at, place)"
        " VALUES(?, ?, ?, ?, ?, ?, ?, ?)")
        .bind(1, row.record)
        .bind(2, row.parent)
        .bind(3, row.item.folder)
        .bind(4, row.item.name)
        .bind(5, qint64(row.item.isFolder))
        .bind(6, row.item.size)
        .bind(7, row.item.deletedAt)
        .bind(8, row.place)
        .run();
    return m_index.failed() ? 0 : m_index.database().lastRowId(); // else that of another row
}

QVector<DriveTrashRow> DriveTrashTable::rows(qint64 id)
{
    sqlite::Statement query(m_index.database(),
        "SELECT id, item, parent, folder, name, is_folder, size, deleted_at, place FROM drive_trash"
        " WHERE ?1 = 0 OR id = ?1 ORDER BY id DESC");
    query.bind(1, id);
    QVector<DriveTrashRow> rows;
    while (query.step()) {
        DriveTrashRow row;
        row.id = query.number(0);
        row.record = query.number(1);
        row.parent = query.number(2);
        row.place = query.text(8);
        row.item = {QString::number(row.id), driveIdText(row.record), query.text(4), query.text(3),
            query.number(5) != 0, query.number(6), query.number(7)};
        rows.append(row);
    }
    return rows;
}

DriveResult<DriveTrashRow> DriveTrashTable::find(qint64 id)
{
    const QVector<DriveTrashRow> found = id > 0 ? rows(id) : QVector<DriveTrashRow>();
    if (m_index.failed())
        return m_index.error();
    if (found.isEmpty())
        return DriveError{DriveError::Kind::NotFound, QStringLiteral("not in the trash")};
    return found.first();
}

void DriveTrashTable::remove(qint64 id)
{
    sqlite::Statement(m_index.database(), "DELETE FROM drive_trash WHERE id = ?").bind(1, id).run();
}

} // namespace zel::service
