#include "base/trash/trash.h"

#include "base/posix/uniquefd.h"
#include "base/trash/trashfolder.h"
#include "base/trash/trashinfo.h"
#include "base/trash/trashmove.h"

#include <QDir>
#include <QFile>
#include <QList>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::trash {
namespace {

using posix::UniqueFd;

bool readInfo(const QByteArray &path, QByteArray &text)
{
    constexpr int Longest = 64 * 1024; // a path has 4 KB, three times that when encoded
    const UniqueFd fd(::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!fd || ::fstat(fd.get(), &status) != 0)
        return false;
    if (!S_ISREG(status.st_mode) || status.st_size > Longest) {
        errno = EPERM;
        return false;
    }
    std::array<char, Longest> buffer;
    const ssize_t size = ::read(fd.get(), buffer.data(), buffer.size());
    text = QByteArray(buffer.data(), int(std::max<ssize_t>(size, 0)));
    return size >= 0;
}

// Where the info says that the document was; empty when it may not say so there.
QByteArray oldPathOf(const QByteArray &text, const Folder &trash)
{
    const QByteArray path = pathOfInfo(text);
    if (path.isEmpty())
        return {};
    if (path.startsWith('/'))
        return trash.base.isEmpty() || isInside(path, trash.base) ? path : QByteArray();
    return trash.base.isEmpty() ? QByteArray() : below(trash.base, path);
}

// Gives the folders that had to be made, deepest first.
QList<QByteArray> makeFolders(const QByteArray &folder)
{
    QList<QByteArray> missing;
    for (QByteArray at = folder; at.size() > 1; at = parentOf(at)) {
        struct stat status = {};
        if (::stat(at.constData(), &status) == 0 || errno != ENOENT)
            break;
        missing.append(at);
    }
    QList<QByteArray> made;
    while (!missing.isEmpty() && ::mkdir(missing.constLast().constData(), 0777) == 0)
        made.prepend(missing.takeLast());
    return made;
}

Result bringBack(const QByteArray &file, const QByteArray &info, const QByteArray &oldPath)
{
    struct stat status = {};
    if (::lstat(file.constData(), &status) != 0)
        return failure(errno, "looking into the trash");
    const QList<QByteArray> made = makeFolders(parentOf(oldPath));
    const int error = moveTo(file, oldPath);
    if (error == 0) {
        ::unlink(info.constData()); // what stays there without its file is harmless
        return {Outcome::Done, {}, {}, {}};
    }
    for (const QByteArray &folder : made)
        ::rmdir(folder.constData());
    Result result = failure(error, "moving out of the trash");
    if (result.outcome == Outcome::Missing) // the file is there, but its old folder cannot be
        result.outcome = Outcome::Failed;
    return result;
}

// What an info file of this path speaks of; empty when that would be no single document.
QByteArray nameOf(const QByteArray &info)
{
    if (!info.endsWith(InfoSuffix))
        return {};
    const QByteArray name = info.mid(info.lastIndexOf('/') + 1).chopped(int(qstrlen(InfoSuffix)));
    return name == "." || name == ".." ? QByteArray() : name;
}

Result restoreFrom(const QByteArray &info)
{
    const auto trash = folderOfInfo(info);
    const QByteArray name = nameOf(info);
    if (!trash || name.isEmpty())
        return failure(EPERM, "not in a trash folder of this user");
    QByteArray text;
    if (!readInfo(info, text))
        return failure(errno, "reading the trash information");
    const QByteArray oldPath = oldPathOf(text, *trash);
    if (oldPath.isEmpty())
        return {Outcome::Failed, {}, {}, QStringLiteral("the trash information cannot be used")};
    Result result = bringBack(trash->path + "/files/" + name, info, oldPath);
    result.path = QFile::decodeName(oldPath);
    return result;
}

} // namespace

Result restore(const QString &trashId)
{
    Result result = failure(EPERM, "not an absolute path");
    if (trashId.startsWith(QLatin1Char('/')) && trashId == QDir::cleanPath(trashId)
        && !trashId.contains(QChar(0)))
        result = restoreFrom(QFile::encodeName(trashId));
    result.trashId = trashId;
    return result;
}

} // namespace zel::trash
