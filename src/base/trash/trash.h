#pragma once

#include <QString>

/// The trash of the desktop for local files (freedesktop Trash specification 1.0). Plain functions for any
/// thread; they block for as long as the file system does, and know nothing of other processes but what the
/// specification promises.
namespace zel::trash {

enum class Outcome {
    Done,
    Missing, ///< there is nothing at that path, or no such thing in the trash any more
    Denied,  ///< no permission, read-only, or a file system that has no trash we may use
    Exists,  ///< restore() only: something is at the old place by now; it stays
    Failed,  ///< anything else, see logText
};

struct Result
{
    Outcome outcome = Outcome::Failed;
    QString trashId; ///< the .trashinfo file's absolute path; empty when put() did not do it
    QString path;    ///< where the document was, and with restore() is again; may be empty when not known
    QString logText; ///< why it was not done, without document names; empty with Done
};

/// Moves a file, folder or symbolic link (itself, not what it points to) into the trash of its file system,
/// by renaming only: nothing is ever copied to another file system. `path` must be absolute, without "..".
Result put(const QString &path);

/// Brings back what put(), or any other program, moved into the trash. Makes the folder it was in again when
/// that is gone; never replaces anything (Exists). An id that does not name an info file inside a trash
/// folder of this user is refused (Denied), so that one may come from another process.
Result restore(const QString &trashId);

} // namespace zel::trash
