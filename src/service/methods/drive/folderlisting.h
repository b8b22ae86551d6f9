#pragma once

#include "service/methods/drive/drivecontext.h"

namespace zel::service {

/// Lists folders page by page. Keeps the list that is being read, so that a folder of many entries is read
/// and sorted once and its pages fit together; only that of the last reader, until its last page. The drive's
/// thread.
class FolderListing
{
public:
    /// A page of the list that was kept when the request says its version, else of a new one.
    DriveResult<vela::GetInfoListResult> page(const DriveJob &job, const vela::GetInfoListArg &request);

private:
    DriveDone read(const DriveJob &job, const vela::GetInfoListArg &request, const QString &id);
    vela::GetInfoListResult cut(const DriveJob &job, const vela::GetInfoListArg &request);

    QString m_id; ///< of the folder; empty: nothing is kept
    DriveItem m_folder;
    QVector<DriveItem> m_items;
    int64_t m_version = 0;
};

} // namespace zel::service
