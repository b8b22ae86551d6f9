#include "service/methods/roaming/roamingmethods.h"

#include "base/clock.h"
#include "notify_types.h"
#include "service/dispatch/pushes.h"
#include "service/methods/drive/driverecords.h"
#include "service/transfer/drivethread.h"

#include <QDir>
#include <QUuid>

namespace zel::service {

using namespace vela;
using wire::ServiceError;

namespace {

constexpr int DefaultCount = 1000;
constexpr size_t MostTold = 500; ///< more changes are told as a reload

const QString NotKept = QStringLiteral("The recent list could not be read or written.");

// What the asker left open is said of this machine.
void fillDevice(RecentFileItem &item, const Identity &who)
{
    if (item.curDeviceId.empty())
        item.curDeviceId = who.deviceId.toStdString();
    if (item.curDeviceId == who.deviceId.toStdString() && item.curDeviceName.empty())
        item.curDeviceName = who.deviceName.toStdString();
    if (item.curDeviceType.empty())
        item.curDeviceType = "pc";
    if (item.path.starts_with('/'))
        item.path = QDir::cleanPath(text(item.path)).toStdString();
}

bool hasMore(int offset, size_t given, qint64 total)
{
    return qMax(offset, 0) + qint64(given) < total;
}

} // namespace

RoamingMethods::RoamingMethods(
    RoamingTable &table, DriveThread &drive, Pushes &pushes, IdentitySource identity)
    : m_table(table), m_drive(drive), m_pushes(pushes), m_identity(std::move(identity))
{
}

void RoamingMethods::serve(MethodTable &methods)
{
    methods.serve("addRoamingRecord", this, &RoamingMethods::add);
    methods.serve("delRoamingRecord", this, &RoamingMethods::remove);
    methods.serve("getRecentFiles", this, &RoamingMethods::recentFiles);
    methods.serve("getRecentFileInfoList", this, &RoamingMethods::fileInfos);
    methods.serve("notifyRecentFiles", this, &RoamingMethods::noteList);
    methods.serve("setCloudItemRead", this, &RoamingMethods::setRead);
    methods.serve("getCurrentDefaultRoamingBox", this, &RoamingMethods::defaultBox);
    methods.serve("getRoamingGroup", this, &RoamingMethods::groups);
    methods.serve("requestSyncRecent", this, &RoamingMethods::sync);
}

void RoamingMethods::tell(const Identity &who, const RoamingChange &change, const std::string &clientName)
{
    if (change.error != ServiceError::None)
        return;
    if (!change.items.empty() || !change.removed.isEmpty())
        pushChange(who, change, clientName);
    Q_EMIT told();
}

void RoamingMethods::pushChange(
    const Identity &who, const RoamingChange &change, const std::string &clientName)
{
    NotifyRecentFileChangeArg push;
    push.reload = change.items.size() + size_t(change.removed.size()) > MostTold;
    if (!push.reload) {
        push.changedItems = change.items;
        push.removedIds = strings(change.removed);
    }
    push.opv = m_table.version(who.userId).toStdString();
    push.userId = who.userId.toStdString();
    if (!clientName.empty())
        push.extraParam["clientName"] = clientName;
    m_pushes.push("notifyRecentFileChange", push);
}

void RoamingMethods::add(const AddRoamingRecordArg &request, Answer<AddRoamingRecordResult> answer)
{
    const Identity who = m_identity();
    AddRoamingRecordResult result;
    RoamingItems items;
    for (const FileRecordItem &event : request.records) {
        RecentFileItem item = fromEvent(event);
        fillDevice(item, who);
        const RecordProblem problem = problemOf(item);
        if (!problem)
            items.push_back(std::move(item));
        else
            result.failedItems[event.path.empty() ? event.fileId : event.path] =
                wire::errorInfo(problem.error, problem.text);
    }
    const RoamingChange change = m_table.add(who.userId, std::move(items), who.deviceId);
    if (change.error != ServiceError::None) {
        answer.fail(change.error, NotKept);
        return;
    }
    result.items = change.items;
    result.opv = m_table.version(who.userId).toStdString();
    if (request.uploadContent)
        result.extraParam["uploadContent"] = wire::errorName(ServiceError::NotServed);
    answer.send(result);
    tell(who, change);
}

void RoamingMethods::recentFiles(const GetRecentFilesArg &request, Answer<GetRecentFilesResult> answer)
{
    const Identity who = m_identity();
    RoamingQuery query;
    query.keyword = text(request.keyword);
    query.suffixes = texts(request.suffixes);
    query.deviceId = text(request.deviceId);
    query.otherThanDevice = request.otherDevicesOnly ? who.deviceId : QString();
    const auto appType = request.extraParam.find("appType");
    if (appType != request.extraParam.end())
        query.appType = text(appType->second);
    query.changedAfter = request.changedAfter;
    query.includeDeleted = request.includeDeleted;
    query.offset = qMax(request.offset, 0);
    query.count = request.count > 0 ? qMin(request.count, RoamingTable::Limit) : DefaultCount;
    RoamingPage page;
    const ServiceError error = m_table.page(who.userId, query, page);
    if (error != ServiceError::None) {
        answer.fail(error, NotKept);
        return;
    }
    GetRecentFilesResult result;
    result.hasMore = hasMore(query.offset, page.items.size(), page.total);
    result.items = std::move(page.items);
    result.total = page.total;
    result.unreadCount = m_table.unreadCount(who.userId);
    result.opv = m_table.version(who.userId).toStdString();
    result.syncTime = m_table.fetchTime(who.userId);
    result.extraParam["deviceId"] = who.deviceId.toStdString();
    answer.send(result);
}

void RoamingMethods::noteList(const NotifyRecentFilesArg &request, Answer<NotifyRecentFilesResult> answer)
{
    const Identity who = m_identity();
    RoamingSelection selection;
    selection.deviceId = who.deviceId;
    RoamingItems items;
    RoamingChange change;
    for (RecentFileItem item : request.items) {
        fillDevice(item, who);
        setMark(item, RoamingMark::None);
        const RecordProblem problem = problemOf(item);
        if (request.action < 3 && problem) {
            answer.fail(problem.error, problem.text);
            return;
        }
        if (!item.roamingId.empty())
            selection.ids.append(text(item.roamingId));
        else if (!item.path.empty() && text(item.curDeviceId) == who.deviceId)
            selection.paths.append(text(item.path));
        else if (!item.fileId.empty())
            selection.fileIds.append(text(item.fileId));
        items.push_back(std::move(item));
    }
    switch (request.action) {
    case 1:
    case 2:
        change = m_table.add(who.userId, std::move(items), who.deviceId);
        break;
    case 4:
        selection.scope = RoamingSelection::Scope::Device;
        [[fallthrough]];
    case 3:
        change = m_table.remove(who.userId, selection);
        change.items.clear();
        break;
    default:
        answer.fail(ServiceError::InvalidArgument, QStringLiteral("There is no such action."));
        return;
    }
    if (change.error != ServiceError::None) {
        answer.fail(change.error, NotKept);
        return;
    }
    NotifyRecentFilesResult result;
    for (const RecentFileItem &item : change.items)
        result.roamingIds.push_back(item.roamingId);
    result.total = m_table.total(who.userId);
    result.opv = m_table.version(who.userId).toStdString();
    answer.send(result);
    tell(who, change, request.clientName);
}

void RoamingMethods::setRead(const SetCloudItemReadArg &request, Answer<SetCloudItemReadResult> answer)
{
    const Identity who = m_identity();
    RoamingSelection selection;
    if (request.allItems) {
        selection.scope = RoamingSelection::Scope::All;
    } else {
        selection.ids = texts(request.roamingIds);
        for (const CloudItemId &item : request.items)
            selection.fileIds.append(text(item.id));
    }
    const RoamingChange change = m_table.setMarks(who.userId, selection, request.unread);
    if (change.error != ServiceError::None) {
        answer.fail(change.error, NotKept);
        return;
    }
    SetCloudItemReadResult result;
    result.changedCount = int32_t(change.items.size());
    result.unreadCount = m_table.unreadCount(who.userId);
    answer.send(result);
    tell(who, change);
}

void RoamingMethods::markFiles(const QStringList &fileIds, bool deleted)
{
    const Identity who = m_identity();
    tell(who, m_table.setDeleted(who.userId, fileIds, deleted));
}

void RoamingMethods::tellReload()
{
    NotifyRecentFileChangeArg push;
    push.reload = true;
    push.userId = m_identity().userId.toStdString();
    m_pushes.push("notifyRecentFileChange", push);
}

void RoamingMethods::sync(const QStringList &, Answer<RequestSyncRecentResult> answer)
{
    // The list is kept here, so that there is nothing to wait for.
    const Identity who = m_identity();
    const qint64 time = zel::now().toMSecsSinceEpoch();
    const ServiceError error = m_table.noteFetch(who.userId, time);
    if (error != ServiceError::None) {
        answer.fail(error, NotKept);
        return;
    }
    RequestSyncRecentResult result;
    result.taskId = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    result.syncTime = time;
    result.opv = m_table.version(who.userId).toStdString();
    answer.send(result);
    NotifyRecentFileFetchArg push;
    push.userId = who.userId.toStdString();
    push.status = 1;
    m_pushes.push("notifyRecentFileFetch", push);
    push.status = 2;
    push.fetchedCount = int32_t(m_table.total(who.userId));
    m_pushes.push("notifyRecentFileFetch", push);
}

} // namespace zel::service
