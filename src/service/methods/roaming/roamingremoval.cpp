#include "service/methods/drive/driverecords.h"
#include "service/methods/failuretexts.h"
#include "service/methods/roaming/roamingmethods.h"
#include "service/transfer/drivethread.h"

#include <QDir>

/// Taking records off the recent list, and the spaces that it knows.
namespace zel::service {

using namespace vela;
using wire::ServiceError;

namespace {

RoamingSelection selectionOf(const DelRoamingRecordArg &request, const QString &device)
{
    RoamingSelection selection;
    if (request.allRecords) {
        selection.scope = RoamingSelection::Scope::All;
        return selection;
    }
    selection.ids = texts(request.roamingIds);
    selection.fileIds = texts(request.fileIds);
    selection.deviceId = device;
    for (const std::string &path : request.paths)
        selection.paths.append(QDir::cleanPath(text(path)));
    return selection;
}

QStringList presentFiles(const RoamingItems &items)
{
    QStringList fileIds;
    for (const RecentFileItem &item : items)
        if (!item.fileId.empty() && !item.deleted)
            fileIds.append(text(item.fileId));
    return fileIds;
}

} // namespace

void RoamingMethods::remove(const DelRoamingRecordArg &request, Answer<DelRoamingRecordResult> answer)
{
    const Identity who = m_identity();
    RoamingChange change = m_table.remove(who.userId, selectionOf(request, who.deviceId));
    if (change.error != ServiceError::None) {
        answer.fail(change.error, databaseText());
        return;
    }
    DelRoamingRecordResult result;
    result.removedCount = change.removed.size();
    result.opv = m_table.version(who.userId).toStdString();
    if (!request.allRecords)
        result.removedIds = strings(change.removed);
    const QStringList fileIds = presentFiles(change.items);
    if (!request.removeFiles || fileIds.isEmpty())
        answer.send(result);
    else
        putIntoBin(fileIds, std::move(result), std::move(answer));
    change.items.clear();
    tell(who, change);
}

void RoamingMethods::putIntoBin(
    const QStringList &fileIds, DelRoamingRecordResult result, Answer<DelRoamingRecordResult> answer)
{
    m_drive.run(
        [fileIds, result](CloudDrive &drive) mutable -> DriveResult<DelRoamingRecordResult> {
            for (const QString &id : fileIds) {
                const auto trashed = drive.trash(id);
                if (!trashed && trashed.error().kind != DriveError::Kind::NotFound)
                    result.failedItems[id.toStdString()] = errorInfo(trashed.error());
            }
            return result;
        },
        [this, answer = std::move(answer)](const DriveResult<DelRoamingRecordResult> &done) mutable {
            if (!done) {
                answer.fail(serviceError(done.error().kind), done.error().text);
                return;
            }
            answer.send(*done);
            Q_EMIT filesRemoved();
        });
}

ServiceError RoamingMethods::removeRecords(
    const RoamingSelection &selection, const std::function<void(const QStringList &)> &answer)
{
    const Identity who = m_identity();
    RoamingChange change = m_table.remove(who.userId, selection);
    if (change.error != ServiceError::None)
        return change.error;
    answer(change.removed);
    change.items.clear();
    tell(who, change);
    return ServiceError::None;
}

RoamingGroupItem RoamingMethods::ownBox()
{
    RoamingGroupItem box;
    box.groupId = OwnGroup;
    box.type = "special";
    box.isDefault = true;
    box.fileCount = m_table.total(m_identity().userId);
    box.sizeLimit = -1;
    return box;
}

void RoamingMethods::defaultBox(
    const GetCurrentDefaultRoamingBoxArg &, Answer<GetCurrentDefaultRoamingBoxResult> answer)
{
    GetCurrentDefaultRoamingBoxResult result;
    result.group = ownBox();
    result.roamingOn = true;
    answer.send(result);
}

void RoamingMethods::groups(const GetRoamingGroupArg &request, Answer<GetRoamingGroupResult> answer)
{
    GetRoamingGroupResult result;
    result.total = request.companyId.empty() ? 1 : 0;
    if (result.total > 0 && request.offset <= 0)
        result.groups.push_back(ownBox());
    answer.send(result);
}

} // namespace zel::service
