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

/// One line without newline: local time with milliseconds, process id, level letter, category, text.
/// Control characters of `text` are escaped and overlong texts cut.
QByteArray formatLogLine(
    const QDateTime &time, QtMsgType type, const char *category, const QString &text, qint64 processId);

} // namespace zel::platform
