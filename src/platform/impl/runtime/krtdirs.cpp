#include "krt/krt.h"

#include "base/paths.h"
#include "codefolder.h"

#include <QDir>
#include <QFileInfo>

namespace krt::dirs {
namespace {

QString firstFolder(std::initializer_list<const char *> relativePaths)
{
    const QDir base(zel::platform::codeFolder());
    for (const char *relative : relativePaths) {
        const QString path = QDir::cleanPath(base.filePath(QLatin1String(relative)));
        if (QFileInfo(path).isDir())
            return path;
    }
    return {};
}

} // namespace

// A build tree keeps libraries in lib/, an installation in lib/zelbox/.
QString office()
{
    static const auto *path = new QString(firstFolder({"../share/zelbox", "../../share/zelbox"}));
    return *path;
}

QString programs()
{
    static const auto *path = new QString(firstFolder({"../bin", "../../bin"}));
    return *path;
}

QString localHalvornHome()
{
    return zel::paths::dataDir();
}

QString officeHome()
{
    return localHalvornHome() + QLatin1String("/office");
}

} // namespace krt::dirs
