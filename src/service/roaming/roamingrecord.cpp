#include "service/roaming/roamingrecord.h"

#include "service/roaming/recordbytes.h"

#include <QByteArray>
#include <QFileInfo>
#include <QUuid>

namespace zel::service {
namespace {

constexpr char UnreadKey[] = "unread";
constexpr size_t LongestPath = 4096;
constexpr int LongestRecord = 32 * 1024; // bytes as they are kept

// Texts that a use may leave empty because it does not know them.
constexpr std::string vela::RecentFileItem::*KeptTexts[] = {&vela::RecentFileItem::appType,
    &vela::RecentFileItem::external, &vela::RecentFileItem::fileSrc, &vela::RecentFileItem::fileSrcType,
    &vela::RecentFileItem::fileId, &vela::RecentFileItem::groudId, &vela::RecentFileItem::summary,
    &vela::RecentFileItem::thumbnail, &vela::RecentFileItem::sha1, &vela::RecentFileItem::cachePath,
    &vela::RecentFileItem::fileType, &vela::RecentFileItem::lastUserId, &vela::RecentFileItem::curDeviceName,
    &vela::RecentFileItem::curDeviceType};

bool changesContent(const std::string &operation)
{
    return operation == "save" || operation == "create" || operation == "rename" || operation == "move";
}

} // namespace

void setMark(vela::RecentFileItem &item, RoamingMark mark)
{
    if (mark == RoamingMark::None)
        item.extraParam.erase(UnreadKey);
    else
        item.extraParam[UnreadKey] = mark == RoamingMark::New ? "new" : "modify";
}

RoamingMark markOf(const vela::RecentFileItem &item)
{
    const auto mark = item.extraParam.find(UnreadKey);
    if (mark == item.extraParam.end())
        return RoamingMark::None;
    return mark->second == "new" ? RoamingMark::New : RoamingMark::Modified;
}

RecordProblem problemOf(const vela::RecentFileItem &item)
{
    using wire::ServiceError;
    if (item.path.empty() && item.fileId.empty())
        return {ServiceError::InvalidArgument, QStringLiteral("A record needs a path or a cloud file.")};
    if (item.path.size() > LongestPath || item.name.size() > LongestPath)
        return {ServiceError::InvalidArgument, QStringLiteral("The path or name is too long.")};
    if (recordBytes(item).size() > LongestRecord)
        return {ServiceError::TooLarge, QStringLiteral("The record is too large.")};
    return {};
}

void complete(vela::RecentFileItem &item, qint64 now)
{
    if (item.name.empty() && !item.b64fName.empty())
        item.name = QByteArray::fromBase64(QByteArray::fromStdString(item.b64fName)).toStdString();
    if (item.name.empty())
        item.name = QFileInfo(QString::fromStdString(item.path)).fileName().toStdString();
    item.b64fName = QByteArray::fromStdString(item.name).toBase64().toStdString();
    if (item.fileTime <= 0 || item.fileTime > now) // a clock was wrong; it would stay the newest use for long
        item.fileTime = now;
    if (item.status.empty())
        item.status = item.deleted ? "deleted" : "normal";
    if (item.fileType.empty())
        item.fileType = "file";
}

vela::RecentFileItem fromEvent(const vela::FileRecordItem &event)
{
    vela::RecentFileItem item;
    item.appType = event.appType;
    item.curDeviceId = event.deviceId;
    item.curDeviceName = event.deviceName;
    item.fileTime = event.actionTime;
    item.fileId = event.fileId;
    item.groudId = event.groupId;
    item.fileSrcType = event.fileId.empty() ? "local" : "cloud";
    item.name = event.name;
    item.operation = event.operation;
    item.path = event.path;
    item.size = event.size;
    item.srcMtime = event.mtime;
    item.fver = event.cloudVersion;
    item.extraParam = event.extraParam;
    item.extraParam.erase(UnreadKey);
    if (changesContent(event.operation)) {
        item.lastUserId = event.userId;
        item.lastUserModifyTime = event.actionTime;
    }
    return item;
}

void made(vela::RecentFileItem &item, qint64 now)
{
    if (item.roamingId.empty())
        item.roamingId = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    if (item.oriDevId.empty()) {
        item.oriDevId = item.curDeviceId;
        item.oriDevName = item.curDeviceName;
        item.oriDevType = item.curDeviceType;
    }
    if (item.ctime <= 0)
        item.ctime = now;
}

vela::RecentFileItem merged(const vela::RecentFileItem &known, const vela::RecentFileItem &use)
{
    vela::RecentFileItem result = use;
    size_t size = size_t(recordBytes(use).size());
    for (const auto text : KeptTexts) {
        if (!(result.*text).empty() || size + (known.*text).size() > size_t(LongestRecord))
            continue;
        result.*text = known.*text;
        size += (known.*text).size();
    }
    result.roamingId = known.roamingId;
    result.ctime = known.ctime;
    result.oriDevId = known.oriDevId;
    result.oriDevName = known.oriDevName;
    result.oriDevType = known.oriDevType;
    if (result.collectTime == 0)
        result.collectTime = known.collectTime;
    if (result.lastUserModifyTime == 0)
        result.lastUserModifyTime = known.lastUserModifyTime;
    if (result.path.empty() && result.curDeviceId == known.curDeviceId)
        result.path = known.path;
    return result;
}

RoamingMark markAfter(RoamingMark before, bool isNew, bool elsewhere, const std::string &operation)
{
    if (!elsewhere)
        return RoamingMark::None;
    if (isNew)
        return RoamingMark::New;
    return before == RoamingMark::None && changesContent(operation) ? RoamingMark::Modified : before;
}

QString suffixOf(const QString &name)
{
    return QFileInfo(name).suffix().toLower();
}

} // namespace zel::service
