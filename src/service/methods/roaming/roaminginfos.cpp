#include "service/methods/drive/driverecords.h"
#include "service/methods/roaming/roamingmethods.h"
#include "service/roaming/recordbytes.h"
#include "service/transfer/drivethread.h"

#include <set>

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

// Of the first `named` ids those that no record has.
void noteMissing(const std::vector<std::string> &ids, size_t named, GetRecentFileInfoListResult &result)
{
    std::set<std::string> found;
    for (const RecentFileItemInfo &info : result.items)
        found.insert(info.fileInfo.roamingId);
    for (size_t i = 0; i < named; ++i)
        if (!found.count(ids[i]))
            result.failedItems[ids[i]] =
                wire::errorInfo(wire::ServiceError::NotFound, QStringLiteral("There is no such record."));
}

// What is known of the files takes room too: the page ends where its limit is reached.
void addCloudItems(
    CloudDrive &drive, bool withParents, const Identity &who, GetRecentFileInfoListResult &result)
{
    qint64 left = PageBytes;
    size_t kept = 0;
    for (; kept < result.items.size() && left > 0; ++kept) {
        addCloudItem(drive, withParents, who, result.items[kept]);
        left -= recordBytes(result.items[kept]).size();
    }
    result.hasMore = result.hasMore || kept < result.items.size();
    result.items.resize(kept);
}

} // namespace

void RoamingMethods::fileInfos(
    const GetRecentFileInfoListArg &request, Answer<GetRecentFileInfoListResult> answer)
{
    const Identity who = m_identity();
    GetRecentFileInfoListResult result;
    RoamingPage page;
    wire::ServiceError error = wire::ServiceError::None;
    size_t named = 0; // ids that were looked for
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
        error = m_table.find(who.userId, texts(request.roamingIds), page);
        result.hasMore = page.total < qint64(request.roamingIds.size());
        named = size_t(page.total);
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
    noteMissing(request.roamingIds, named, result);
    m_drive.run(
        [result = std::move(result), withParents = request.withParents, who](
            CloudDrive &drive) mutable -> DriveResult<GetRecentFileInfoListResult> {
            addCloudItems(drive, withParents, who, result);
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
