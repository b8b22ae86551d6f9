#pragma once

#include <QLatin1String>
#include <QString>

/// Which icon of the built-in family stands for a file. Pure functions; any thread.
namespace zel::platform {

/// Lower-case text after the last dot; empty without one, for a leading dot only, and when too long to be a
/// type.
QString suffixOf(const QString &fileName);

/// The class ("document", "sheet", …) of a suffix as suffixOf() gives it; null when the family has none.
QLatin1String classOfSuffix(const QString &suffix);

/// The class of a MIME type, for names whose suffix says nothing; null when the family has none.
QLatin1String classOfMimeType(const QString &mimeType);

/// The resource with the icon of a class.
QString iconFileOfClass(QLatin1String fileClass);

} // namespace zel::platform
