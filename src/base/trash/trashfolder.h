#pragma once

#include <QByteArray>

#include <optional>
#include <sys/types.h>

namespace zel::trash {

constexpr char InfoSuffix[] = ".trashinfo";

// Paths are absolute, and in the file system's bytes.
QByteArray parentOf(const QByteArray &path);
QByteArray below(const QByteArray &folder, const QByteArray &name);
bool isInside(const QByteArray &path, const QByteArray &folder); ///< or the folder itself

/// A mounted file system, as far as rename() minds: it moves nothing between two mounts.
struct MountId
{
    quint64 device = 0;
    quint64 mount = 0; ///< 0 where the kernel does not tell; bind mounts then look the same
    bool operator==(const MountId &) const = default;
};

/// A trash folder with its "files" and "info".
struct Folder
{
    QByteArray path;
    QByteArray base; ///< what relative paths in it start from, the mount point; empty for the home trash
};

/// Mount that a file or folder lies on; nothing when it cannot be looked at (errno). Links are followed.
std::optional<MountId> mountOf(const QByteArray &path);

/// The user's home trash, made as needed; nothing when it cannot be used, or lies on another mount.
std::optional<Folder> homeFolder(const MountId &mount);

/// The trash of the mount that `folder`, an absolute path without links, lies on: `.Trash/<uid>` if the
/// administrator set that up properly, else `.Trash-<uid>`. Made as needed; nothing when that is not
/// possible.
std::optional<Folder> mountFolder(const QByteArray &folder, const MountId &mount);

/// The trash folder of this user that an info file of this path would lie in. Makes nothing.
std::optional<Folder> folderOfInfo(const QByteArray &infoPath);

} // namespace zel::trash
