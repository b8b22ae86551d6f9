#pragma once

#include "service/drive/drivetransfer.h"

namespace zel::service {

/// Copies a file or a folder with all in it to a name that is not taken. Links to files inside `root` become
/// files, what else is no item is left out. Any thread.
class TreeCopy
{
public:
    TreeCopy(const QByteArray &root, TransferMeter &meter) : m_root(root), m_meter(meter) { }

    /// `source` is open for reading.
    DriveDone run(int source, int to, const QString &newName, bool isFolder, int depth = 0);

    /// Bytes that a copy would transfer.
    static qint64 measure(int source, bool isFolder, const QByteArray &root, int depth = 0);
    /// Entries that were left out because their names are no UTF-8.
    int unreadable() const { return m_unreadable; }

private:
    DriveDone copyFile(int source, int to, const QString &newName);
    DriveDone copyFolder(int source, int to, const QString &newName, int depth);
    DriveDone copyChild(int source, const disk::Entry &entry, int to, int depth);

    const QByteArray &m_root;
    TransferMeter &m_meter;
    int m_unreadable = 0;
};

} // namespace zel::service
