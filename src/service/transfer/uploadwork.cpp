#include "service/transfer/uploadwork.h"

#include "service/drive/drivenames.h"
#include "service/drive/localsource.h"

#include <QDateTime>
#include <QDir>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;

constexpr int DeepestFolder = 90;

bool isSame(const DriveItem &item, const QFileInfo &file)
{
    return !item.isFolder && item.size == file.size()
        && item.mtime / 1000 == file.lastModified().toMSecsSinceEpoch() / 1000;
}

} // namespace

DriveResult<UploadWork::Children> UploadWork::childrenOf(const QString &folder)
{
    const auto items = m_drive.list(folder);
    if (!items)
        return items.error();
    Children children;
    for (const DriveItem &item : *items)
        children.insert(item.name, item);
    return children;
}

DriveResult<TransferOutcome> UploadWork::run()
{
    const QFileInfo source(QString::fromStdString(m_task.info.localPath));
    if (!source.isFile() && !source.isDir())
        return DriveError{Kind::NotFound, QStringLiteral("The local file is not there.")};
    if (source.isFile()) {
        const auto there = childrenOf(m_task.folder);
        if (!there)
            return there.error();
        m_monitor.progress = {0, source.size(), 0, 1};
        const auto same = there->constFind(m_task.name);
        const auto item =
            putFile(source, m_task.folder, m_task.name, same == there->cend() ? nullptr : &*same);
        if (!item)
            return item.error();
        return TransferOutcome{*item, {}, 1, source.size()};
    }
    if (isMadeUp(source.filePath()))
        return DriveError{Kind::Denied, QStringLiteral("The local folder is made up by the system.")};
    measure(source.filePath(), 0);
    const auto folder = topFolder();
    if (!folder)
        return folder.error();
    const bool merges = m_task.policy == ConflictPolicy::Replace || m_task.policy == ConflictPolicy::Skip;
    fill(source.filePath(), *folder, m_task.made.isEmpty() && !merges, 0);
    if (m_failure.first())
        return *m_failure.first();
    return TransferOutcome{*folder, {}, m_monitor.progress.files, m_monitor.progress.total, m_leftOut};
}

QFileInfoList UploadWork::entriesOf(const QString &folder) const
{
    QDir::Filters filters = QDir::AllEntries | QDir::NoDotAndDotDot;
    if (m_task.includeHidden)
        filters |= QDir::Hidden;
    QFileInfoList wanted;
    const QFileInfoList found = QDir(folder).entryInfoList(filters, QDir::Name);
    for (const QFileInfo &entry : found) {
        const bool isFolder = entry.isDir() && !entry.isSymLink() && !isMadeUp(entry.filePath());
        const bool isFile = entry.isFile() && !m_task.excludedSuffixes.contains(entry.suffix().toLower());
        if (isFolder || isFile)
            wanted.append(entry);
    }
    return wanted;
}

void UploadWork::measure(const QString &folder, int depth)
{
    if (depth > DeepestFolder || m_monitor.order() != TransferMonitor::Order::GoOn)
        return;
    m_leftOut += countUnstorable(folder, m_task.includeHidden);
    const QFileInfoList entries = entriesOf(folder);
    for (const QFileInfo &entry : entries) {
        if (entry.isDir()) {
            measure(entry.filePath(), depth + 1);
            continue;
        }
        m_monitor.progress.total += entry.size();
        ++m_monitor.progress.files;
    }
}

// A folder that an earlier attempt made is gone on with; otherwise the policy decides.
DriveResult<DriveItem> UploadWork::topFolder()
{
    if (!m_task.made.isEmpty()) {
        auto made = m_drive.stat(m_task.made);
        if (made || made.error().kind != Kind::NotFound)
            return made;
    }
    auto folder = m_drive.createFolder(m_task.folder, m_task.name);
    const bool taken = !folder && folder.error().kind == Kind::Exists;
    if (taken && m_task.policy != ConflictPolicy::Refuse) {
        const auto there = childrenOf(m_task.folder);
        if (!there)
            return there.error();
        const DriveItem present = there->value(m_task.name);
        if (m_task.policy != ConflictPolicy::KeepBoth && present.isFolder)
            folder = present;
        for (int number = 2; m_task.policy == ConflictPolicy::KeepBoth && !folder
             && folder.error().kind == Kind::Exists && number < 10000;
             ++number)
            folder = m_drive.createFolder(m_task.folder, numberedDriveName(m_task.name, number, true));
    }
    if (folder)
        m_monitor.tellMade(folder->id);
    return folder;
}

bool UploadWork::fill(const QString &source, const DriveItem &target, bool isNew, int depth)
{
    if (depth > DeepestFolder)
        return m_failure.take({Kind::InvalidName, QStringLiteral("The folders are too deep.")});
    if (!QFileInfo(source).isReadable())
        return m_failure.take({Kind::Denied, QStringLiteral("A local folder cannot be read.")});
    const auto there = isNew ? DriveResult<Children>(Children()) : childrenOf(target.id);
    if (!there)
        return m_failure.take(there.error());
    const QFileInfoList entries = entriesOf(source);
    for (const QFileInfo &entry : entries)
        if (!put(entry, target, *there, depth))
            return false;
    return true;
}

bool UploadWork::put(const QFileInfo &entry, const DriveItem &target, const Children &there, int depth)
{
    if (!m_monitor.advance(m_done))
        return m_failure.take({Kind::Cancelled, QStringLiteral("stopped")});
    const auto same = there.constFind(entry.fileName());
    const bool isThere = same != there.cend();
    if (entry.isDir()) {
        const auto folder = isThere && same->isFolder ? DriveResult<DriveItem>(*same)
                                                      : m_drive.createFolder(target.id, entry.fileName());
        return folder ? fill(entry.filePath(), *folder, !isThere, depth + 1) : m_failure.take(folder.error());
    }
    const auto item = putFile(entry, target.id, entry.fileName(), isThere ? &*same : nullptr);
    if (item)
        ++m_monitor.progress.filesDone;
    return item || m_failure.take(item.error());
}

DriveResult<DriveItem> UploadWork::putFile(
    const QFileInfo &file, const QString &folder, const QString &name, const DriveItem *there)
{
    const bool doneBefore = there && m_task.resumed && isSame(*there, file);
    if (doneBefore || (there && m_task.policy == ConflictPolicy::Skip)) {
        m_done += file.size();
        return *there;
    }
    const qint64 before = m_done;
    DriveWriteOptions options;
    options.conflict = driveConflict(m_task.policy);
    options.trashReplaced = true;
    auto item = m_drive.writeFrom(folder, name, file.filePath(), options,
        [this, before](qint64 done, qint64) { return m_monitor.advance(before + done); });
    m_done = before + file.size();
    return item;
}

} // namespace zel::service
