#include "service/methods/drive/driveplace.h"

#include "service/drive/drivenames.h"
#include "service/methods/drive/drivelookup.h"

#include <functional>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;
using Put = std::function<DriveResult<DriveItem>()>;

constexpr int MostNumbers = 10000;

// A replaced item is a person's document: it goes to the trash, where it can be had back.
DriveResult<DriveItem> putAway(
    CloudDrive &drive, const QString &folder, const QString &name, const QString &id, const Put &put)
{
    const auto occupant = childNamed(drive, folder, name);
    if (!occupant || occupant->id == id)
        return put();
    const auto away = drive.trash(occupant->id);
    if (!away)
        return away.error();
    auto item = put();
    if (!item && !drive.restore(away->id))
        item = DriveError{
            item.error().kind, item.error().text % QStringLiteral("; what was replaced is in the trash")};
    return item;
}

} // namespace

DriveResult<DriveItem> renameItem(
    CloudDrive &drive, const QString &id, const QString &name, DriveConflict conflict)
{
    const auto item = drive.stat(id);
    if (!item)
        return item.error();
    if (conflict == DriveConflict::Replace)
        return putAway(drive, item->parentId, name, id, [&] { return drive.rename(id, name); });
    auto renamed = drive.rename(id, name);
    for (int number = 2; number < MostNumbers && conflict == DriveConflict::KeepBoth && !renamed
         && renamed.error().kind == Kind::Exists;
         ++number)
        renamed = drive.rename(id, numberedDriveName(name, number, item->isFolder));
    return renamed;
}

DriveResult<DriveItem> moveItem(CloudDrive &drive, const QString &id, const DrivePlace &place)
{
    const auto before = drive.stat(id);
    if (!before)
        return before.error();
    const QString name = place.name.isEmpty() ? before->name : place.name;
    if (before->parentId == place.folder)
        return renameItem(drive, id, name, place.conflict);
    if (name == before->name) {
        if (place.conflict == DriveConflict::Replace)
            return putAway(drive, place.folder, name, id,
                [&] { return drive.move(id, place.folder, DriveConflict::Fail); });
        return drive.move(id, place.folder, place.conflict);
    }
    // The old name may be taken there although the new one is free.
    const auto moved = drive.move(id, place.folder, DriveConflict::KeepBoth);
    if (!moved)
        return moved.error();
    auto renamed = renameItem(drive, id, name, place.conflict);
    if (!renamed) {
        const auto back = drive.move(id, before->parentId, DriveConflict::KeepBoth);
        if (back && back->name != before->name)
            (void)drive.rename(id, before->name);
    }
    return renamed;
}

DriveResult<DriveItem> copyItem(
    CloudDrive &drive, const QString &id, const DrivePlace &place, const DriveProgress &progress)
{
    const auto original = drive.stat(id);
    if (!original)
        return original.error();
    const QString name = place.name.isEmpty() ? original->name : place.name;
    const auto occupant = place.conflict == DriveConflict::Replace ? childNamed(drive, place.folder, name)
                                                                   : std::optional<DriveItem>();
    if (!occupant)
        return drive.copy(id, place.folder, name, place.conflict, progress);
    if (occupant->id == id)
        return DriveError{Kind::Denied, QStringLiteral("An item cannot replace itself.")};
    // What is there goes only when the copy is complete.
    const auto copied = drive.copy(id, place.folder, name, DriveConflict::KeepBoth, progress);
    if (!copied)
        return copied.error();
    auto renamed = renameItem(drive, copied->id, name, DriveConflict::Replace);
    if (!renamed) {
        const auto away = drive.trash(copied->id);
        if (away)
            (void)drive.purge(away->id);
    }
    return renamed;
}

DriveResult<DriveItem> makeFolders(
    CloudDrive &drive, const QString &folder, const QStringList &names, bool &existed)
{
    DriveResult<DriveItem> item = drive.stat(folder);
    existed = true;
    for (const QString &name : names) {
        if (!item)
            return item;
        const QString parent = item->id;
        existed = false;
        item = drive.createFolder(parent, name);
        if (item || item.error().kind != Kind::Exists)
            continue;
        const auto there = childNamed(drive, parent, name);
        existed = there && there->isFolder;
        if (existed)
            item = *there;
    }
    return item;
}

} // namespace zel::service
