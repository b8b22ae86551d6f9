#pragma once

#include "service/drive/driveindex.h"

#include <QCryptographicHash>

#include <vector>

class QIODevice;

namespace zel::service {

/// Counts what was transferred and asks the callback whether to go on.
class TransferMeter
{
public:
    TransferMeter(const DriveProgress &progress, qint64 total) : m_progress(progress), m_total(total) { }

    bool add(qint64 bytes); ///< false: cancelled

private:
    const DriveProgress &m_progress;
    const qint64 m_total;
    qint64 m_done = 0;
};

/// What went into a file, to compare it with before it gets its real name. Any thread.
class WrittenContent
{
public:
    void add(const char *bytes, qint64 count);
    /// Reads the file that has this name now, which has to be the open one.
    DriveDone check(int folder, const QString &name, int file) const;

private:
    QCryptographicHash m_hash{QCryptographicHash::Sha1};
    qint64 m_size = 0;
};

/// Bytes between devices and descriptors, to the end of the source. Any thread.
DriveDone copyBytes(QIODevice &source, int target, TransferMeter &meter, WrittenContent &written);
DriveDone copyBytes(int source, QIODevice &target, TransferMeter &meter);
DriveDone copyBytes(int source, int target, TransferMeter &meter);

/// A file or folder in the making, under a hidden name in the folder where it will stand. Gone again with
/// this object unless it was kept; one that a killed process left is removed by removeLeftovers(). The
/// drive's thread.
class TempEntry
{
public:
    /// Notes the name in the database, so that it is found again after a crash; see error().
    TempEntry(DriveIndex &index, qint64 folderId, int folder);
    ~TempEntry();
    TempEntry(const TempEntry &) = delete;
    TempEntry &operator=(const TempEntry &) = delete;

    const QString &name() const { return m_name; }
    DriveResult<disk::UniqueFd> makeFile(); ///< open for writing; only the user may read it so far
    void dropRow();                         ///< in the transaction that says what it has become
    void keep() { m_kept = true; }          ///< it has its real name now, and the transaction is done

private:
    DriveIndex &m_index;
    const int m_folder;
    const QString m_name;
    qint64 m_row = 0;
    bool m_kept = false;
};

/// Folders in which names changed. They are flushed without a hold, as that may take long; a name that was
/// not is there all the same, unless the machine fails at once.
class Unsynced
{
public:
    void add(int folder);       ///< keeps a descriptor of its own
    void sync(DriveHold &hold); ///< lets go of `hold`, which is held

private:
    std::vector<disk::UniqueFd> m_folders;
};

/// Gives a file the times and permissions of another; failures do not matter.
void copyAttributes(int source, int target);

} // namespace zel::service
