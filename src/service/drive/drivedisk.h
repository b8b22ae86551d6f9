#pragma once

#include "base/posix/uniquefd.h"
#include "service/drive/driveresult.h"
#include "service/drive/drivetypes.h"

#include <QVector>

#include <optional>

/// Folders and files by descriptor and name. Nothing here follows a symbolic link unless it says so, so that
/// a link swapped in meanwhile leads nowhere. Functions that return no DriveResult leave errno set. Any
/// thread.
namespace zel::service::disk {

using posix::UniqueFd;

inline constexpr int DeepestFolder = 100; ///< below the root; each level costs a descriptor while walking

struct Identity
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 birthNs = 0; ///< 0 where the file system does not know; tells a reused inode from the old one
};

struct Entry
{
    QString name;
    bool isFolder = false;
    bool isLink = false; ///< a link to a regular file; size and time are the file's
    Identity identity;   ///< of a link its own
    qint64 size = 0;
    qint64 mtimeNs = 0;
    qint64 ctimeNs = 0; ///< when it was made, else its last change
};

DriveError error(const char *what, int code);
DriveError lastError(const char *what); ///< of errno

QByteArray descriptorPath(int fd); ///< a path that leads to what is open

UniqueFd openFolder(int parent, const QString &name);

/// A file, folder or link to a file inside `root` (a path without links). ENOENT for anything else.
std::optional<Entry> entryAt(int folder, const QString &name, const QByteArray &root);
std::optional<Entry> entryOf(int fd); ///< of an open file or folder; has no name

bool isReadableName(const QByteArray &name); ///< UTF-8

/// Everything in a folder but the drive's hidden entries and what entryAt() would not tell of.
/// `unreadable` counts names that are no UTF-8.
DriveResult<QVector<Entry>> entriesOf(int folder, const QByteArray &root, int &unreadable);

/// For reading. A link that leads to a file inside `root` is followed. Never waits, as for a pipe's writer.
UniqueFd openFile(int folder, const QString &name, const QByteArray &root);

/// Renames under the policy; gives the name that it got.
DriveResult<QString> rename(
    int from, const QString &oldName, int to, const QString &newName, bool isFolder, DriveConflict conflict);

/// Permissions of the regular file that has this name, links not followed; -1 when there is none.
int modeAt(int folder, const QString &name);
int usualMode(); ///< of a new file: what the process's mask leaves

/// True also when there was nothing. `begun` tells after a failure whether something of it is gone.
bool removeTree(int folder, const QString &name, bool *begun = nullptr);

} // namespace zel::service::disk
