#include "krt/krt.h"

#include "base/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace krt::dirs {
namespace {

// The folder of the shared library that this code is in, or of the program when it is linked into one.
QString codeFolder()
{
    Dl_info info{};
    QString file;
    if (::dladdr(reinterpret_cast<const void *>(&codeFolder), &info) != 0 && info.dli_fname)
        file = QFile::decodeName(info.dli_fname);
    // A program is named as it was started, which may be relative to a folder that we have left since.
    if (!QDir::isAbsolutePath(file))
        file = QStringLiteral("/proc/self/exe");
    return QFileInfo(QFileInfo(file).canonicalFilePath()).absolutePath();
}

QString firstFolder(std::initializer_list<const char *> relativePaths)
{
    const QDir base(codeFolder());
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
