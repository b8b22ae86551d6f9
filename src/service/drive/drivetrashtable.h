#pragma once

#include "service/drive/driveindex.h"

namespace zel::service {

/// What the database knows of an item in the trash.
struct DriveTrashRow
{
    DriveTrashItem item;
    qint64 id = 0;
    qint64 record = 0; ///< in the index
    qint64 parent = 0; ///< the folder where it was
    QString place;     ///< the folder in the trash where it is
};

/// The rows of the trash. Failures stay in the database, as with DriveIndex. The drive's thread.
class DriveTrashTable
{
public:
    explicit DriveTrashTable(DriveIndex &index) : m_index(index) { }

    QVector<DriveTrashRow> all() { return rows(0); } ///< the latest first
    DriveResult<DriveTrashRow> find(qint64 id);
    qint64 add(const DriveTrashRow &row); ///< its id; 0 when that fails
    void remove(qint64 id);

private:
    QVector<DriveTrashRow> rows(qint64 id); ///< 0: all

    DriveIndex &m_index;
};

} // namespace zel::service
