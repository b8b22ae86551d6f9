#pragma once

#include "platform/impl/recentstore/records/recenttypes.h"

#include <QFile>

namespace zel::recent {

enum class ListFileState { Opened, Missing, Unusable };

/// Opens a recently-used list for reading; `stamp` tells the state that is read. Only a regular file is
/// opened, so a pipe or device in its place cannot hang the reader. Links are followed.
ListFileState openListFile(const QString &path, QFile &file, FileStamp &stamp);

/// Stamp of the opened file as it is now.
FileStamp stampOf(const QFile &file);

/// Stamp of what stands at the path; none when nothing does.
std::optional<FileStamp> stampOf(const QString &path);

/// Stamp of a list that has been removed or emptied; none when it is neither, or nobody can tell.
std::optional<FileStamp> stampOfCleared(const QString &path);

} // namespace zel::recent
