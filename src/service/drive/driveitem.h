#pragma once

#include "service/drive/driveindex.h"

namespace zel::service {

/// A record as the drive's callers see it. `root` is the drive's folder, `folderPath` the way from there to
/// the folder that the item is in. Any thread.
DriveItem driveItem(const DriveRecord &record, const QString &root, const QString &folderPath);

} // namespace zel::service
