#pragma once

#include <QString>

/// What the service tells about this machine. Read from the file system each time; any thread.
namespace zel::service {

QString cloudCacheDir(); ///< $XDG_CACHE_HOME/zelbox/cloud; need not be there
qint64 sizeOfFolder(
    const QString &folder); ///< bytes of all files below it, links not followed; 0 when it is not there

/// Whether the desktop starts the box when the user logs in.
bool isAutostarted();

} // namespace zel::service
