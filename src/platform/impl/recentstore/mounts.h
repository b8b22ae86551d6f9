#pragma once

#include <QString>

namespace zel::recent {

/// Mount point that the path lies on, by the kernel's table `mountInfo` (the text of /proc/self/mountinfo);
/// nothing of the file system itself is touched. "/" when none fits.
QString mountPointOf(const QString &path, const QByteArray &mountInfo);

bool isBelow(const QString &path, const QString &folder);

} // namespace zel::recent
