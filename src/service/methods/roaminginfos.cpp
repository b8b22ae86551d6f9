#include "service/methods/records.h"
#include "service/methods/roamingmethods.h"
#include "service/transfer/drivethread.h"

#include <algorithm>

/// The recent list with what the drive knows of its files.
namespace zel::service {

using namespace vela;

namespace {

constexpr int DefaultCount = 200; // each is looked up in the drive

// A record whose file is not in the drive stays on the list with an empty cloud item.
void addCloudItem(CloudDrive &drive, bool withParents, const Identity &who, RecentFileItemInfo &info)
{
    if (info.fileInfo.fileId.empty())
        return;
    const auto steps = drive.pathOf(text(info.fileInfo.fileId));
    if (!steps)
        return;
    info.cloudItem = cloudItem(steps->last(), who);
    for (int i = 0; withParents && i + 1 < steps->size(); ++i)
        info.mapParentItem[steps->at(i).id.toStdString()] = cloudItem(steps->at(i), who);
}

} // namespace

void RoamingMethods::fileInfos(
    const GetRecentFileInfoListArg &request, Answer<GetRecentFileInfoListResult> answer)
{
    const Identity who = m_identity();
    GetRecentFileInfoListResult result;
    RoamingPage page;
    wire::ServiceError error = wire::ServiceError::None;
    if (request.roamingIds.empty()) {
        RoamingQuery query;
        query.suffixes = texts(request.suffixes);
        query.changedAfter = request.changedAfter;
        query.includeDeleted = true;
        query.offset = qMax(request.offset, 0);
        query.count = request.count > 0 ? qMin(request.count, RoamingTable::Limit) : DefaultCount;
        error = m_table.page(who.userId, query, page);
        result.hasMore = query.offset + qint64(page.items.size()) < page.total;
    } else {
        error = m_table.find(who.userId, texts(request.roamingIds), page.items);
        page.total = qint64(page.items.size());
    }
    if (error != wire::ServiceError::None) {
        answer.fail(error, QStringLiteral("The recent list could not be read."));
        return;
    }
    result.total = page.total;
    result.opv = m_table.version(who.userId).toStdString();
    for (RecentFileItem &item : page.items) {
        RecentFileItemInfo info;
        info.fileInfo = std::move(item);
        result.items.push_back(std::move(info));
    }
    for (const std::string &id : request.roamingIds)
        if (std::none_of(result.items.begin(), result.items.end(),
                [&id](const RecentFileItemInfo &info) { return info.fileInfo.roamingId == id; }))
            result.failedItems[id] =
                wire::errorInfo(wire::ServiceError::NotFound, QStringLiteral("There is no such record."));
    m_drive.run(
        [result = std::move(result), withParents = request.withParents, who](
            CloudDrive &drive) mutable -> DriveResult<GetRecentFileInfoListResult> {
            for (RecentFileItemInfo &info : result.items)
                addCloudItem(drive, withParents, who, info);
            return std::move(result);
        },
        [answer = std::move(answer)](const DriveResult<GetRecentFileInfoListResult> &done) mutable {
            if (done)
                answer.send(*done);
            else
                answer.fail(serviceError(done.error().kind), done.error().text);
        });
}

} // namespace zel::service
