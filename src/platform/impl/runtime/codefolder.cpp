#include "codefolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace zel::platform {

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

} // namespace zel::platform
