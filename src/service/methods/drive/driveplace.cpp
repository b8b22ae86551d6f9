#include "service/methods/drive/driveplace.h"

#include "service/drive/drivenames.h"
#include "service/methods/drive/drivelookup.h"

#include <functional>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;
using Put = std::function<DriveResult<DriveItem>()>;

// A replaced item is a person's document: it goes to the trash, where it can be had back.
DriveResult<DriveItem> putAway(
    CloudDrive &drive, const QString &folder, const QString &name, const QString &id, const Put &put)
{
    const DriveHold hold = drive.hold();
    const auto occupant = childNamed(drive, folder, name);
    if (!occupant)
        return occupant.error();
    if (!*occupant || (*occupant)->id == id)
        return put();
    const auto away = drive.trash((*occupant)->id);
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
    if (conflict == DriveConflict::Fail)
        return drive.rename(id, name);
    const DriveHold hold = drive.hold();
    const auto item = drive.stat(id);
    return item ? moveItem(drive, id, {item->parentId, name, conflict}) : item;
}

DriveResult<DriveItem> moveItem(CloudDrive &drive, const QString &id, const DrivePlace &place)
{
    if (place.conflict != DriveConflict::Replace)
        return drive.move(id, place.folder, place.name, place.conflict);
    const DriveHold hold = drive.hold();
    const auto item = drive.stat(id);
    if (!item)
        return item.error();
    return putAway(drive, place.folder, place.name.isEmpty() ? item->name : place.name, id,
        [&] { return drive.move(id, place.folder, place.name, DriveConflict::Fail); });
}

DriveResult<DriveItem> copyItem(CloudDrive &drive, const QString &id, const DrivePlace &place,
    const DriveProgress &progress, int *leftOut)
{
    const auto original = drive.stat(id);
    if (!original)
        return original.error();
    const QString name = place.name.isEmpty() ? original->name : place.name;
    const auto occupant = place.conflict == DriveConflict::Replace
        ? childNamed(drive, place.folder, name)
        : DriveMaybe<DriveItem>(std::optional<DriveItem>());
    if (!occupant)
        return occupant.error();
    if (!*occupant)
        return drive.copy(id, place.folder, name, place.conflict, progress, leftOut);
    if ((*occupant)->id == id)
        return DriveError{Kind::Denied, QStringLiteral("An item cannot replace itself.")};
    // What is there goes only when the copy is complete.
    const auto copied = drive.copy(id, place.folder, name, DriveConflict::KeepBoth, progress, leftOut);
    if (!copied)
        return copied.error();
    auto renamed = renameItem(drive, copied->id, name, DriveConflict::Replace);
    if (!renamed)
        (void)drive.remove(copied->id);
    return renamed;
}

DriveResult<QString> removeItem(CloudDrive &drive, const QString &id, bool permanent)
{
    if (permanent) {
        const auto removed = drive.remove(id);
        return removed ? DriveResult<QString>(QString()) : removed.error();
    }
    const auto away = drive.trash(id);
    return away ? DriveResult<QString>(away->id) : away.error();
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
        if (!there)
            return there.error();
        existed = *there && (*there)->isFolder;
        if (existed)
            item = **there;
    }
    return item;
}

} // namespace zel::service
