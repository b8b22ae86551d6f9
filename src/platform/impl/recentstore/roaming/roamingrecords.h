#pragma once

#include "platform/impl/recentstore/records/roamingtypes.h"
#include "recent_types.h"

#include <optional>

/// Between the cloud service's records and plain values: the only code here that names the records' fields.
/// Pure.
namespace zel::recent {

/// Whose list is read, and where.
struct RoamingReader
{
    QString user;
    QString deviceId; ///< of this machine; empty when it is not known
    qint64 now = 0;   ///< ms since epoch, UTC
};

/// None for what is not to be shown: files that are gone, records without name or id, or of another user. A
/// time of use more than a day ahead of the clock is not believed.
std::optional<RoamingItem> toItem(const vela::RecentFileItem &record, const RoamingReader &reader);

/// Where the files of the cloud are on this device, by roaming id.
void addCachePaths(QVector<RoamingItem> &items, const vela::GetRecentFileInfoListResult &answer);

/// One page of the list. `refresh`: the service fetches it from its server first.
vela::GetRecentFilesArg pageRequest(const QString &filter, int offset, int count, bool refresh);
vela::GetRecentFileInfoListArg infoRequest(const QStringList &roamingIds);
vela::SetCloudItemReadArg readRequest(const QVector<ReadMark> &marks);
vela::AddRoamingRecordArg useRequest(const QVector<FileUse> &uses);

/// What opens files of that name: "writer", "sheet", "slides", "pdf"; empty when none of them does.
QString appTypeOf(const QString &fileName);

} // namespace zel::recent
