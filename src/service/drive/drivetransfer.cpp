#include "drivetransfer.h"

#include "base/logging.h"
#include "drivenames.h"

#include <QFileDevice>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::service {
namespace {

constexpr int ChunkBytes = 256 * 1024;
constexpr size_t RangeBytes = 4 * 1024 * 1024;
using Chunk = std::array<char, ChunkBytes>;

DriveError cancelled()
{
    return {DriveError::Kind::Cancelled, QStringLiteral("cancelled")};
}

DriveError deviceError(const char *what, const QIODevice &device)
{
    DriveError error{DriveError::Kind::Io, QLatin1String(what) % device.errorString()};
    const auto *file = qobject_cast<const QFileDevice *>(&device);
    if (file && file->error() == QFileDevice::ResourceError)
        error.kind = DriveError::Kind::DiskFull;
    return error;
}

// Bytes read, 0 at the end, -1 on failure.
qint64 readSome(QIODevice &source, Chunk &chunk)
{
    qint64 count = source.read(chunk.data(), chunk.size());
    while (count == 0 && source.isSequential() && source.waitForReadyRead(-1))
        count = source.read(chunk.data(), chunk.size());
    // Sequential devices also answer -1 when no more will come.
    return count < 0 && source.isSequential() && source.atEnd() ? 0 : count;
}

bool writeAll(int target, const char *bytes, qint64 count)
{
    while (count > 0) {
        const ssize_t written = ::write(target, bytes, size_t(count));
        if (written < 0 && errno != EINTR)
            return false;
        bytes += qMax<ssize_t>(written, 0);
        count -= qMax<ssize_t>(written, 0);
    }
    return true;
}

ssize_t readSome(int source, Chunk &chunk)
{
    ssize_t count = 0;
    do
        count = ::read(source, chunk.data(), chunk.size());
    while (count < 0 && errno == EINTR);
    return count;
}

DriveDone copyPlainly(int source, int target, TransferMeter &meter)
{
    const auto chunk = std::make_unique<Chunk>();
    while (const ssize_t count = readSome(source, *chunk)) {
        if (count < 0)
            return disk::lastError("read");
        if (!writeAll(target, chunk->data(), count))
            return disk::lastError("write");
        if (!meter.add(count))
            return cancelled();
    }
    return DriveOk();
}

} // namespace

bool TransferMeter::add(qint64 bytes)
{
    m_done += bytes;
    return !m_progress || m_progress(m_done, m_total);
}

void WrittenContent::add(const char *bytes, qint64 count)
{
    m_hash.addData(bytes, int(count));
    m_size += count;
}

DriveDone WrittenContent::check(int folder, const QString &name, int file) const
{
    const DriveError other{DriveError::Kind::Io, QStringLiteral("what was written is not what is there")};
    const disk::UniqueFd fd = disk::openFile(folder, name, {});
    const auto written = disk::entryOf(file);
    const auto there = fd ? disk::entryOf(fd.get()) : std::nullopt;
    if (!written || !there)
        return disk::lastError("look at what was written");
    if (there->identity.inode != written->identity.inode || there->size != m_size)
        return other;
    const auto chunk = std::make_unique<Chunk>();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    while (const ssize_t count = readSome(fd.get(), *chunk)) {
        if (count < 0)
            return disk::lastError("read what was written");
        hash.addData(chunk->data(), int(count));
    }
    return hash.result() == m_hash.result() ? DriveDone(DriveOk()) : other;
}

DriveDone copyBytes(QIODevice &source, int target, TransferMeter &meter, WrittenContent &written)
{
    const auto chunk = std::make_unique<Chunk>();
    while (const qint64 count = readSome(source, *chunk)) {
        if (count < 0)
            return deviceError("source: ", source);
        if (!writeAll(target, chunk->data(), count))
            return disk::lastError("write");
        written.add(chunk->data(), count);
        if (!meter.add(count))
            return cancelled();
    }
    return DriveOk();
}

DriveDone copyBytes(int source, QIODevice &target, TransferMeter &meter)
{
    const auto chunk = std::make_unique<Chunk>();
    while (const ssize_t count = readSome(source, *chunk)) {
        if (count < 0)
            return disk::lastError("read");
        if (target.write(chunk->data(), count) != count)
            return deviceError("target: ", target);
        if (!meter.add(count))
            return cancelled();
    }
    auto *file = qobject_cast<QFileDevice *>(&target);
    if (file && !file->flush())
        return deviceError("target: ", target);
    return DriveOk();
}

DriveDone copyBytes(int source, int target, TransferMeter &meter)
{
    // The kernel copies, on some file systems without moving a byte. Where it cannot, nothing was copied yet.
    bool any = false;
    for (;;) {
        const ssize_t count = ::copy_file_range(source, nullptr, target, nullptr, RangeBytes, 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0 && !any)
            return copyPlainly(source, target, meter); // also for files that only claim to be empty
        if (count < 0)
            return disk::lastError("copy");
        if (count == 0)
            return DriveOk();
        any = true;
        if (!meter.add(count))
            return cancelled();
    }
}

TempEntry::TempEntry(DriveIndex &index, qint64 folderId, int folder)
    : m_index(index),
      m_folder(folder),
      m_name(QLatin1String(HiddenPrefix) % QStringLiteral("tmp-")
          % QString::number(QRandomGenerator::system()->generate64(), 16))
{
    const DriveHold hold = index.hold();
    sqlite::Statement(index.database(), "INSERT INTO drive_temp(folder, name) VALUES(?, ?)")
        .bind(1, folderId)
        .bind(2, m_name)
        .run();
    m_row = index.failed() ? 0 : index.database().lastRowId(); // else that of another row
}

TempEntry::~TempEntry()
{
    if (m_kept || !disk::removeTree(m_folder, m_name))
        return; // one that cannot be removed keeps its row, so that the next start tries again
    const DriveHold hold = m_index.hold();
    dropRow();
}

void TempEntry::dropRow()
{
    sqlite::Statement(m_index.database(), "DELETE FROM drive_temp WHERE id = ?").bind(1, m_row).run();
}

DriveResult<disk::UniqueFd> TempEntry::makeFile()
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    disk::UniqueFd fd(::openat(m_folder, m_name.toUtf8().constData(), Flags, 0600));
    if (!fd)
        return disk::lastError("create");
    return fd;
}

void Unsynced::add(int folder)
{
    m_folders.emplace_back(::fcntl(folder, F_DUPFD_CLOEXEC, 0));
}

void Unsynced::sync(DriveHold &hold)
{
    hold.unlock();
    for (const disk::UniqueFd &folder : m_folders)
        if (folder && ::fsync(folder.get()) != 0)
            qCWarning(lcService, "drive: a folder cannot be flushed: %s", std::strerror(errno));
    m_folders.clear();
}

void copyAttributes(int source, int target)
{
    struct stat status
    {
    };
    if (::fstat(source, &status) != 0)
        return;
    const struct timespec times[] = {status.st_atim, status.st_mtim};
    [[maybe_unused]] const bool mode = ::fchmod(target, status.st_mode & 0777) == 0;
    [[maybe_unused]] const bool time = ::futimens(target, times) == 0;
}

} // namespace zel::service
