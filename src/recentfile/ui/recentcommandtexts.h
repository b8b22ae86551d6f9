#pragma once

#include "krecentfile.h"

/// What the Recent page's notices say of its commands: the one document by name, several by number. Lists
/// have one record at least. GUI thread.
namespace zel::recent {

QString noticeName(const RecentFileInfo &record);   ///< no longer than a notice has room for
QString removedText(const RecordInfoList &records); ///< off the list, and how far that can be undone
QString backOnListText(const RecordInfoList &records);
QString deletedText(const RecordInfoList &records); ///< the files
QString notDeletedText(const RecordInfoList &records);
QString broughtBackText(const RecordInfoList &records);
QString notBroughtBackText(const RecordInfoList &records);

/// Those that lie on this device, which alone can be put back on the list.
int countLocal(const RecordInfoList &records);

} // namespace zel::recent
