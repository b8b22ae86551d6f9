#pragma once

#include "service/drive/drivetypes.h"

#include <QHash>
#include <QSet>
#include <QStringList>

namespace zel::service {

/// What a run of changes comes to, each item once: something that came and went again is no news. A pure
/// value.
struct DriveNews
{
    QStringList created;  ///< ids, as everything below
    QStringList modified; ///< content
    QStringList moved;    ///< name or folder
    QVector<DriveChange> gone;
    QSet<QString> folders; ///< that any of it happened in

    int size() const { return created.size() + modified.size() + moved.size() + gone.size(); }
};

DriveNews summarize(const QVector<DriveChange> &changes);

} // namespace zel::service
