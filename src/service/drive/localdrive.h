#pragma once

#include "service/drive/clouddrive.h"
#include "service/drive/driveplacing.h"

#include <memory>

namespace zel::service {

/// A drive that is a folder of this machine, in which other programs work too. An absent folder is an empty
/// drive and is made by the first write. Ids follow items that others rename or move (see FolderSync).
///
/// What counts as an item: folders to disk::DeepestFolder levels, regular files, and links to files inside
/// the drive, which are read through but never written through. Other links, devices, pipes and names that
/// are no UTF-8 are left out. ".zel-" names are the drive's own.
///
/// All of it, the database's connection included, belongs to one thread.
class LocalDrive final : public CloudDrive
{
public:
    /// The database is open and stays so while the drive lives; it holds the tables of one drive. No
    /// transaction may be open during a call. Drives on the same folder share a claim.
    LocalDrive(const QString &root, sqlite::Database &database,
        std::shared_ptr<DriveClaim> claim = std::make_shared<DriveClaim>());

    /// Call first. Makes the tables and clears away what a killed process left behind.
    DriveDone prepare();

    /// Tells whether a DriveWatcher hands all changes of others to refresh() or rescan(). Without one,
    /// changesSince(), search() and usage() read the whole tree each time. Holds for all that share the
    /// claim.
    void setWatched(bool watched) { m_claim->watched = watched; }
    DriveDone refresh(const QStringList &folders); ///< as DriveWatcher::changed() tells them
    DriveDone rescan();

    DriveHold hold() override { return m_index.hold(); }
    QString rootId() const override;
    DriveResult<QVector<DriveItem>> list(const QString &folderId) override;
    DriveResult<DriveItem> stat(const QString &id) override;
    DriveResult<DriveItem> resolve(const QString &path) override;
    DriveResult<DriveItem> child(const QString &folderId, const QString &name) override;
    DriveResult<QVector<DriveItem>> pathOf(const QString &id) override;
    DriveResult<DriveItem> createFolder(const QString &parentId, const QString &name) override;
    DriveResult<DriveItem> createFile(const QString &parentId, const QString &name) override;
    DriveResult<DriveItem> write(const QString &parentId, const QString &name, QIODevice &source,
        const DriveWriteOptions &options, const DriveProgress &progress) override;
    DriveDone read(const QString &id, QIODevice &target, const DriveProgress &progress) override;
    DriveResult<DriveItem> rename(const QString &id, const QString &name) override;
    DriveResult<DriveItem> move(
        const QString &id, const QString &parentId, const QString &name, DriveConflict conflict) override;
    DriveResult<DriveItem> copy(const QString &id, const QString &parentId, const QString &name,
        DriveConflict conflict, const DriveProgress &progress, int *leftOut = nullptr) override;
    DriveDone remove(const QString &id) override;
    DriveResult<DriveTrashItem> trash(const QString &id) override;
    DriveResult<QVector<DriveTrashItem>> listTrash() override;
    DriveResult<DriveItem> restore(const QString &trashId) override;
    DriveDone purge(const QString &trashId) override;
    DriveDone emptyTrash() override;
    DriveResult<DriveUsage> usage() override;
    DriveResult<DriveChanges> changesSince(const QString &cursor) override;
    DriveResult<QVector<DriveItem>> search(const QString &text, int limit) override;

private:
    qint64 begin(const QString &id);
    DriveResult<DriveFolder> folderToFill(const QString &id, const QString &newName, DriveHold &hold);
    DriveDone checkTarget(
        const DriveFolder &folder, const QString &name, bool isFolder, DriveConflict conflict);
    DriveDone fill(TempEntry &temp, const DriveFolder &folder, const QString &name, QIODevice &source,
        const DriveWriteOptions &options, const DriveProgress &progress);
    DriveDone copyContent(int source, bool isFolder, const DriveFolder &folder, TempEntry &temp,
        const DriveProgress &progress, int *leftOut);
    DriveDone ensureScanned();
    DriveDone removeLeftovers();

    const std::shared_ptr<DriveClaim> m_claim;
    DriveIndex m_index;
    DriveTree m_tree;
    DriveTrash m_trash;
    DrivePlacing m_placing;
};

} // namespace zel::service
