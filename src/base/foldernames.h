#pragma once

#include <QString>
#include <QVector>
#include <optional>

namespace zel {

struct FolderName
{
    QString name;
    bool folder = false;
};
using FolderNames = QVector<FolderName>;

/// What a folder holds, hidden names and those that no text can hold left out, in no order; none: it cannot
/// be read. What each is the folder itself tells, so a dead mount in it holds nobody up; a link is followed
/// where that cannot hang, and counts as a folder elsewhere. Blocks as long as the folder's own file system
/// does: not for the GUI thread.
std::optional<FolderNames> namesIn(const QString &folder);

} // namespace zel
