#pragma once

#include "service/drive/drivetransfer.h"

namespace zel::service {

/// Copies a file or a folder with all in it to a name that is not taken. Links to files inside `root` become
/// files, what else is no item is left out. Any thread.
class TreeCopy
{
public:
    TreeCopy(const QByteArray &root, TransferMeter &meter) : m_root(root), m_meter(meter) { }

    DriveDone run(
        int from, const QString &name, int to, const QString &newName, bool isFolder, int depth = 0);

    /// Bytes that a copy would transfer.
    static qint64 measure(
        int from, const QString &name, bool isFolder, const QByteArray &root, int depth = 0);

private:
    DriveDone copyFile(int from, const QString &name, int to, const QString &newName);
    DriveDone copyFolder(int from, const QString &name, int to, const QString &newName, int depth);

    const QByteArray &m_root;
    TransferMeter &m_meter;
};

} // namespace zel::service
