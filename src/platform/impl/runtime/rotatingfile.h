#pragma once

#include "base/posix/uniquefd.h"

#include <QByteArray>
#include <QString>
#include <mutex>

namespace zel::platform {

/// A text file of this user (mode 0600) that several threads and processes append lines to. Any thread.
/// A full file becomes `<path>.1`, the one before it `<path>.2`, and so on; the oldest is dropped.
class RotatingFile
{
public:
    static constexpr qint64 DefaultLimit = 1024 * 1024; // bytes
    static constexpr int OldFiles = 3;

    explicit RotatingFile(const QString &path, qint64 limit = DefaultLimit);

    /// Appends `line` and a newline with a single write, so that lines of several writers never mix.
    /// False when the file cannot be opened or written; the next call tries again.
    bool append(const QByteArray &line);

    /// Removes the file and the old ones; the next line begins a new file, also of other writers. False when
    /// one of them could not be removed.
    bool clear();

private:
    bool ensureOpen();
    void rotateIfFull();
    void shiftOldFiles() const;
    QByteArray numbered(int n) const;

    const QByteArray m_path;
    const qint64 m_limit;
    std::mutex m_mutex;
    posix::UniqueFd m_file;
};

} // namespace zel::platform
