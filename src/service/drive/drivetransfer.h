#pragma once

#include "service/drive/driveindex.h"

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

/// Bytes between devices and descriptors, to the end of the source. Any thread.
DriveDone copyBytes(QIODevice &source, int target, TransferMeter &meter);
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
    void keep() { m_kept = true; }          ///< it has its real name now

private:
    DriveIndex &m_index;
    const int m_folder;
    const QString m_name;
    qint64 m_row = 0;
    bool m_kept = false;
};

/// Gives a file the times and permissions of another; failures do not matter.
void copyAttributes(int source, int target);

} // namespace zel::service
