#pragma once

#include <QString>

namespace zel::service {

/// Rules for names in a drive that is a folder. Pure functions, any thread.

/// Of the drive's own hidden entries; no document may be called so.
inline constexpr char HiddenPrefix[] = ".zel-";
inline constexpr int LongestNameBytes = 255;

/// Whether a file or folder of the drive may have this name: 1 to 255 bytes of UTF-8, neither "." nor "..",
/// without "/" and NUL, and not one of the drive's hidden ones.
bool isValidDriveName(const QString &name);

bool isHiddenDriveName(const QString &name);

/// "report.txt" with 2 becomes "report (2).txt", shortened before the number when it would be too long.
/// A folder's name has no extension.
QString numberedDriveName(const QString &name, int number, bool isFolder);

} // namespace zel::service
