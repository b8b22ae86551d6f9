#include "service/methods/drive/folderlisting.h"

#include "base/namecollator.h"
#include "service/methods/drive/drivelookup.h"
#include "service/roaming/roamingrecord.h"

#include <algorithm>
#include <numeric>

namespace zel::service {
namespace {

using namespace vela;

constexpr int DefaultCount = 1000;

bool passes(const DriveItem &item, const GetInfoListArg &request)
{
    const auto has = [](const std::vector<std::string> &list, const std::string &value) {
        return list.empty() || std::find(list.begin(), list.end(), value) != list.end();
    };
    if (!request.showHidden && item.name.startsWith(QLatin1Char('.')))
        return false;
    return has(request.types, item.isFolder ? "folder" : "file")
        && (item.isFolder || has(request.suffixes, suffixOf(item.name).toStdString()));
}

// Pages of one version fit together: it changes with any child's name, place or content, and with the order.
int64_t listVersion(const QVector<DriveItem> &items)
{
    QString all;
    for (const DriveItem &item : items)
        all += item.id % QLatin1Char('/') % item.name % QLatin1Char('/') % item.version % QLatin1Char('/');
    return versionNumber(all);
}

template <class Value> int compareValues(const Value &left, const Value &right)
{
    return left < right ? -1 : int(right < left);
}

int compareBy(const std::string &orderBy, const DriveItem &left, const DriveItem &right)
{
    if (orderBy == "size")
        return compareValues(left.size, right.size);
    if (orderBy == "ctime")
        return compareValues(left.ctime, right.ctime);
    if (orderBy == "mtime")
        return compareValues(left.mtime, right.mtime);
    return orderBy == "type" && !left.isFolder ? compareValues(suffixOf(left.name), suffixOf(right.name)) : 0;
}

// Names are compared by keys that are made once: a long list would take seconds otherwise. Equal items stand
// by ascending name in either direction.
QVector<DriveItem> sorted(const QVector<DriveItem> &items, const GetInfoListArg &request)
{
    const QCollator collator = nameCollator();
    std::vector<QCollatorSortKey> keys;
    keys.reserve(size_t(items.size()));
    for (const DriveItem &item : items)
        keys.push_back(collator.sortKey(item.name));
    const bool byName = request.orderBy.empty() || request.orderBy == "name";
    const auto isBefore = [&](int left, int right) {
        const DriveItem &a = items.at(left);
        const DriveItem &b = items.at(right);
        if (request.foldersFirst && a.isFolder != b.isFolder)
            return a.isFolder;
        const int name = keys[size_t(left)].compare(keys[size_t(right)]);
        const int order = byName ? name : compareBy(request.orderBy, a, b);
        if (order != 0)
            return request.descending ? order > 0 : order < 0;
        return name != 0 ? name < 0 : a.id < b.id;
    };
    QVector<int> places(items.size());
    std::iota(places.begin(), places.end(), 0);
    std::sort(places.begin(), places.end(), isBefore);
    QVector<DriveItem> result;
    result.reserve(items.size());
    for (const int place : qAsConst(places))
        result.append(items.at(place));
    return result;
}

bool continues(const GetInfoListArg &request, int64_t version)
{
    const auto wanted = request.extraParam.find("listVersion");
    return !request.refresh && wanted != request.extraParam.end()
        && wanted->second == std::to_string(version);
}

} // namespace

DriveResult<GetInfoListResult> FolderListing::page(const DriveJob &job, const GetInfoListArg &request)
{
    const auto id = folderId(job.drive, request.groupId, request.parentId);
    if (!id)
        return id.error();
    if (m_id != *id || !continues(request, m_version)) {
        const auto done = read(job, request, *id);
        if (!done)
            return done.error();
    }
    GetInfoListResult result = cut(job, request);
    if (!result.hasMore)
        *this = {};
    return result;
}

DriveDone FolderListing::read(const DriveJob &job, const GetInfoListArg &request, const QString &id)
{
    *this = {};
    const auto folder = job.drive.stat(id);
    auto items = folder ? job.drive.list(id) : DriveResult<QVector<DriveItem>>(folder.error());
    if (!items)
        return items.error();
    items->erase(std::remove_if(items->begin(), items->end(),
                     [&request](const DriveItem &item) { return !passes(item, request); }),
        items->end());
    m_id = id;
    m_folder = *folder;
    m_items = sorted(*items, request);
    m_version = listVersion(m_items);
    return DriveOk();
}

GetInfoListResult FolderListing::cut(const DriveJob &job, const GetInfoListArg &request)
{
    GetInfoListResult result;
    result.folder = cloudItem(m_folder, job.identity);
    result.total = m_items.size();
    result.listVersion = m_version;
    const int from = std::clamp(request.offset, 0, m_items.size());
    const int count = std::min(request.count > 0 ? request.count : DefaultCount, m_items.size() - from);
    for (int i = from; i < from + count; ++i)
        result.items.push_back(cloudItem(m_items.at(i), job.identity));
    result.hasMore = from + count < m_items.size();
    return result;
}

} // namespace zel::service
