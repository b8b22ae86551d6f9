#pragma once

#include <QByteArray>
#include <QDateTime>

namespace zel::trash {

/// Text of a .trashinfo file. `path` in the file system's bytes; `deletedAt` in local time.
QByteArray infoText(const QByteArray &path, const QDateTime &deletedAt);

/// The path in such a text, as it stands there: absolute or relative. Empty when the text is none of these,
/// or the path could lead elsewhere than it says (empty, "..", a NUL).
QByteArray pathOfInfo(const QByteArray &text);

/// Name for the n-th attempt (1 is the name itself), as "letter.2.txt", so short that with ".trashinfo" it
/// stays within `maximum` bytes; never cut inside a UTF-8 character.
QByteArray nameInTrash(const QByteArray &name, int attempt, int maximum);

} // namespace zel::trash
