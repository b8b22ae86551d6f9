#include "roamingrecords.h"

#include "cloud/wire/texts.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace zel::recent {
namespace {

using wire::fromQt;
using wire::toQt;

constexpr qint64 BelievableMs = 24LL * 3600 * 1000;

// Empty unless it can name a file.
QString pathOf(const std::string &bytes)
{
    const QString path = toQt(bytes);
    const bool isPath = QDir::isAbsolutePath(path) && !path.contains(QChar::Null);
    return isPath ? QDir::cleanPath(path) : QString();
}

QString nameOf(const vela::RecentFileItem &record)
{
    QString name = toQt(record.name);
    if (name.isEmpty())
        name = QString::fromUtf8(QByteArray::fromBase64(QByteArray::fromStdString(record.b64fName)));
    if (name.isEmpty())
        name = QFileInfo(toQt(record.path)).fileName();
    return name;
}

qint64 timeOf(const vela::RecentFileItem &record, qint64 now)
{
    for (const qint64 time : {record.fileTime, record.mtime, record.ctime}) {
        if (time > 0 && time <= now + BelievableMs)
            return time;
    }
    return 1;
}

int unreadOf(const vela::RecentFileItem &record)
{
    const auto mark = record.extraParam.find("unread");
    if (mark == record.extraParam.end())
        return -1;
    return mark->second == "new" ? 0 : mark->second == "modify" ? 1 : -1;
}

} // namespace

std::optional<RoamingItem> toItem(const vela::RecentFileItem &record, const RoamingReader &reader)
{
    RoamingItem item;
    item.roamingId = toQt(record.roamingId);
    item.user = reader.user;
    item.fileId = toQt(record.fileId);
    item.name = nameOf(record);
    const bool isForeign = !record.userId.empty() && toQt(record.userId) != reader.user;
    if (record.deleted || isForeign || item.roamingId.isEmpty() || item.name.isEmpty())
        return {};
    if (!reader.deviceId.isEmpty() && toQt(record.curDeviceId) == reader.deviceId)
        item.usedPath = pathOf(record.path);
    else
        item.deviceName = toQt(record.curDeviceName);
    item.cachePath = pathOf(record.cachePath);
    item.time = timeOf(record, reader.now);
    item.size = record.size > 0 ? record.size : -1; // services that do not know it say 0
    item.unread = unreadOf(record);
    return item;
}

void addCachePaths(QVector<RoamingItem> &items, const vela::GetRecentFileInfoListResult &answer)
{
    QHash<QString, QString> paths;
    for (const vela::RecentFileItemInfo &info : answer.items) {
        const QString path = pathOf(info.cloudItem.cache);
        if (!path.isEmpty())
            paths.insert(toQt(info.fileInfo.roamingId), path);
    }
    for (RoamingItem &item : items) {
        if (item.cachePath.isEmpty())
            item.cachePath = paths.value(item.roamingId);
    }
}

vela::GetRecentFilesArg pageRequest(const QString &filter, int offset, int count, bool refresh)
{
    vela::GetRecentFilesArg request;
    request.offset = offset;
    request.count = count;
    request.keyword = fromQt(filter);
    request.refresh = refresh;
    return request;
}

vela::GetRecentFileInfoListArg infoRequest(const QStringList &roamingIds)
{
    vela::GetRecentFileInfoListArg request;
    for (const QString &id : roamingIds)
        request.roamingIds.push_back(fromQt(id));
    return request;
}

vela::SetCloudItemReadArg readRequest(const QVector<ReadMark> &marks)
{
    vela::SetCloudItemReadArg request;
    for (const ReadMark &mark : marks) {
        if (mark.fileId.isEmpty()) {
            request.roamingIds.push_back(fromQt(mark.roamingId));
            continue;
        }
        vela::CloudItemId item;
        item.id = fromQt(mark.fileId);
        request.items.push_back(item);
    }
    return request;
}

vela::AddRoamingRecordArg useRequest(const QVector<FileUse> &uses)
{
    vela::AddRoamingRecordArg request;
    for (const FileUse &use : uses) {
        const QString name = QFileInfo(use.path).fileName();
        vela::FileRecordItem record;
        record.path = fromQt(use.path);
        record.name = fromQt(name);
        record.size = use.size;
        record.mtime = use.mtime;
        record.actionTime = use.time;
        record.operation = "open";
        record.appType = fromQt(appTypeOf(name));
        request.records.push_back(record);
    }
    return request;
}

QString appTypeOf(const QString &fileName)
{
    static const QHash<QString, QString> types = [] {
        const std::pair<const char *, const char *> groups[] = {
            {"writer", "doc docx docm dot dotx odt fodt ott rtf txt md"},
            {"sheet", "xls xlsx xlsm xlsb xlt xltx ods fods ots csv tsv"},
            {"slides", "ppt pptx pptm pps ppsx pot potx odp fodp otp"},
            {"pdf", "pdf"},
        };
        QHash<QString, QString> table;
        for (const auto &[type, suffixes] : groups) {
            for (const QString &suffix : QString::fromLatin1(suffixes).split(QLatin1Char(' ')))
                table.insert(suffix, QString::fromLatin1(type));
        }
        return table;
    }();
    return types.value(QFileInfo(fileName).suffix().toLower());
}

} // namespace zel::recent
