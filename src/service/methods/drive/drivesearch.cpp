#include "search_types.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/drivelookup.h"
#include "service/roaming/roamingrecord.h"

#include <algorithm>

namespace zel::service {
namespace {

using namespace vela;

constexpr int MostFound = 2000;
constexpr int DefaultCount = 100;

bool passes(const DriveItem &item, const CloudDocSearchArg &request)
{
    const auto has = [&item](const std::vector<std::string> &suffixes) {
        return suffixes.empty()
            || (!item.isFolder
                && std::find(suffixes.begin(), suffixes.end(), suffixOf(item.name).toStdString())
                    != suffixes.end());
    };
    const AISearchFilters &filters = request.filters;
    const bool inTime =
        item.mtime >= filters.startTime && (filters.endTime <= 0 || item.mtime < filters.endTime);
    const bool inSize =
        item.size >= filters.minSize && (filters.maxSize <= 0 || item.size <= filters.maxSize);
    return has(request.suffixes) && has(filters.suffixes) && inTime && inSize;
}

// A name that is the term comes before one that begins with it, and that before one that holds it.
double score(const QString &name, const QString &keyword)
{
    const int at = name.indexOf(keyword, 0, Qt::CaseInsensitive);
    if (at == 0)
        return name.size() == keyword.size() ? 3 : 2;
    return at > 0 && !name.at(at - 1).isLetterOrNumber() ? 1 : 0;
}

void sortFound(QVector<DriveItem> &items, const CloudDocSearchArg &request)
{
    const QString keyword = text(request.keyword);
    std::stable_sort(items.begin(), items.end(), [&](const DriveItem &left, const DriveItem &right) {
        switch (request.orderBy) {
        case 1:
            return left.mtime > right.mtime;
        case 2:
            return comesBefore(left, right, "name");
        case 3:
            return left.size > right.size;
        default:
            return score(left.name, keyword) > score(right.name, keyword);
        }
    });
}

QString highlighted(const QString &name, const QString &keyword)
{
    QString marked;
    int from = 0;
    for (int at = name.indexOf(keyword, 0, Qt::CaseInsensitive); at >= 0 && !keyword.isEmpty();
         at = name.indexOf(keyword, from, Qt::CaseInsensitive)) {
        marked += name.mid(from, at - from) % QStringLiteral("<em>") % name.mid(at, keyword.size())
            % QStringLiteral("</em>");
        from = at + keyword.size();
    }
    return marked + name.mid(from);
}

CloudDocSearchFileInfoItem found(const DriveJob &job, const DriveItem &item, const QString &keyword)
{
    CloudDocSearchFileInfoItem info;
    info.item = cloudItem(item, job.identity);
    const auto steps = job.drive.pathOf(item.id);
    if (steps)
        info.path = pathInfo(*steps).path;
    info.highlightName = highlighted(item.name, keyword).toStdString();
    info.score = score(item.name, keyword);
    info.creator.userId = job.identity.userId.toStdString();
    info.creator.userName = job.identity.userName.toStdString();
    return info;
}

DriveResult<CloudDocSearchResult> search(const DriveJob &job, const CloudDocSearchArg &request)
{
    CloudDocSearchResult result;
    result.uuid = request.uuid;
    result.keyword = request.keyword;
    const QString keyword = text(request.keyword).trimmed();
    const auto &groups = request.groupIds.empty() ? request.filters.groupIds : request.groupIds;
    if (keyword.isEmpty() || (!groups.empty() && std::none_of(groups.begin(), groups.end(), isOwnGroup)))
        return result;
    auto items = job.drive.search(keyword, MostFound);
    if (!items)
        return items.error();
    items->erase(std::remove_if(items->begin(), items->end(),
                     [&request](const DriveItem &item) { return !passes(item, request); }),
        items->end());
    sortFound(*items, request);
    const int from = std::clamp(request.offset, 0, items->size());
    const int size = std::min(request.count > 0 ? request.count : DefaultCount, items->size() - from);
    for (int i = from; i < from + size; ++i)
        result.files.push_back(found(job, items->at(i), keyword));
    result.total = items->size();
    result.hasMore = from + size < items->size();
    return result;
}

} // namespace

void addDriveSearch(MethodTable &methods, const DriveContext &context)
{
    serveOn<CloudDocSearchArg, CloudDocSearchResult>(
        context.quick, context, methods, "cloudDocSearch", search);
}

} // namespace zel::service
