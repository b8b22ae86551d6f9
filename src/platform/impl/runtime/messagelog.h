#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QtGlobal>

/// The process's log: Qt's messages appended to a file, and to stderr where a person may see them. Any thread
/// logs; install and remove on the GUI thread.
namespace zel::platform {

/// Starts writing to `path`. While that file cannot be written everything goes to stderr.
/// A second call changes the file only.
void installMessageLog(const QString &path);
/// Restores the message handler that installMessageLog() found, and closes the file. Does nothing without
/// one.
void removeMessageLog();

/// What may be a name or path in a message of the toolkit or of a library gives way to "…": they know nothing
/// of the rule that documents are not named in the log. Our own categories ("zel.…") keep it themselves, and
/// what is said of plugins is left as it is.
QString withoutNames(const char *category, const QString &text);

/// One line without newline: local time with milliseconds, process id, level letter, category, text.
/// Control characters of `text` are escaped and overlong texts cut.
QByteArray formatLogLine(
    const QDateTime &time, QtMsgType type, const char *category, const QString &text, qint64 processId);

} // namespace zel::platform
