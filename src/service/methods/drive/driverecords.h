#pragma once

#include "common_types.h"
#include "drive_types.h"
#include "recycle_types.h"
#include "service/drive/drivetypes.h"
#include "service/methods/identity.h"
#include "service/transfer/driveerrors.h"

#include <QStringList>

/// From the service's values to wire records and back: the only place that knows both. Pure functions.
namespace zel::service {

inline QString text(const std::string &value)
{
    return QString::fromStdString(value);
}
QStringList texts(const std::vector<std::string> &values);
std::vector<std::string> strings(const QStringList &values);

/// The user's own space, the only one of a drive.
inline constexpr char OwnGroup[] = "0";
/// Whether an id of a space means it; an empty one does.
bool isOwnGroup(const std::string &groupId);

wire::ServiceError errorNamed(const std::string &name); ///< as wire::errorName() says; unknown: Internal
/// Makes an answer say why it was not done.
template <class Result> void refuse(Result &result, wire::ServiceError error, const QString &reason)
{
    result.state = int32_t(error);
    result.errorInfo = wire::errorInfo(error, reason);
}
template <class Result> void refuse(Result &result, const DriveError &error)
{
    refuse(result, serviceError(error.kind), error.text);
}

int64_t versionNumber(const QString &version); ///< above 0; differs when the content may differ
vela::CloudItem cloudItem(const DriveItem &item, const Identity &identity);
vela::CloudItem cloudItem(const DriveChange &change, const Identity &identity); ///< of an item that is gone
vela::CloudItemId cloudItemId(const DriveItem &item);
vela::ItemPathInfoV5 pathInfo(const QVector<DriveItem> &steps); ///< root first, the item last
vela::RecycleBinItem recycleItem(const DriveTrashItem &item, const Identity &identity);

/// Order of a list by one of the names that requests give; unknown ones mean the name.
bool comesBefore(const DriveItem &left, const DriveItem &right, const std::string &orderBy);

} // namespace zel::service
