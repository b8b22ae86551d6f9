#include "base/trash/trash.h"

#include "base/posix/uniquefd.h"
#include "base/trash/trashfolder.h"
#include "base/trash/trashinfo.h"
#include "base/trash/trashmove.h"

#include <QDateTime>
#include <QFile>
#include <QList>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::trash {
namespace {

using posix::UniqueFd;

constexpr int InSequence = 32; ///< attempts with 2, 3, 4 … before the numbers are drawn at random
constexpr int MostAttempts = 64;

/// The document that goes into the trash.
struct Document
{
    QByteArray path;   ///< as given, clean
    QByteArray folder; ///< that it is in, without links
    QByteArray name;

    QByteArray realPath() const { return below(folder, name); }
};

QByteArray withoutLinks(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return QByteArray(real.get());
}

// Paths in the trash of a mount are relative, so that they hold wherever it is mounted next time.
QByteArray infoPathOf(const Document &document, const Folder &trash)
{
    if (trash.base.isEmpty())
        return document.path;
    return document.realPath().mid(trash.base == "/" ? 1 : trash.base.size() + 1);
}

bool writeAll(int fd, const QByteArray &text)
{
    for (int done = 0; done < text.size();) {
        const ssize_t written = ::write(fd, text.constData() + done, size_t(text.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += int(std::max<ssize_t>(written, 0));
    }
    return true;
}

// 0, or the errno; EEXIST when that name is taken. Leaves no file behind unless it is whole.
int writeInfo(const QByteArray &path, const QByteArray &text)
{
    UniqueFd fd(::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!fd)
        return errno;
    if (writeAll(fd.get(), text) && ::close(fd.release()) == 0)
        return 0;
    const int error = errno;
    ::unlink(path.constData());
    return error;
}

// The info file comes first and reserves the name; so a file in the trash always has one.
int putUnder(const QByteArray &name, const Document &document, const Folder &trash, QByteArray &info)
{
    info = trash.path + "/info/" + name + InfoSuffix;
    int error = writeInfo(info, infoText(infoPathOf(document, trash), QDateTime::currentDateTime()));
    if (error != 0)
        return error;
    error = moveTo(document.realPath(), trash.path + "/files/" + name);
    if (error != 0)
        ::unlink(info.constData());
    return error;
}

Result putInto(const Document &document, const Folder &trash)
{
    const int maximum = int(std::max(64L, ::pathconf(trash.path.constData(), _PC_NAME_MAX)));
    int error = EEXIST;
    for (int attempt = 1; attempt <= MostAttempts && error == EEXIST; ++attempt) {
        const int number =
            attempt <= InSequence ? attempt : QRandomGenerator::global()->bounded(InSequence, 1 << 30);
        QByteArray info;
        error = putUnder(nameInTrash(document.name, number, maximum), document, trash, info);
        if (error == 0)
            return {Outcome::Done, QFile::decodeName(info), {}, {}};
    }
    Result result = failure(error, "moving into the trash");
    if (error == EEXIST)
        result.outcome = Outcome::Failed;
    return result;
}

Result putAway(const Document &document)
{
    const auto mount = mountOf(document.folder);
    if (!mount)
        return failure(errno, "looking at the folder");
    Result result = failure(EXDEV, "no trash on this file system");
    if (const auto home = homeFolder(*mount)) {
        if (isInside(document.realPath(), withoutLinks(home->path)))
            return failure(EPERM, "is in the trash already");
        result = putInto(document, *home);
    } else if (const auto trash = mountFolder(document.folder, *mount)) {
        if (isInside(document.realPath(), trash->path))
            return failure(EPERM, "is in the trash already");
        result = putInto(document, *trash);
    }
    return result;
}

} // namespace

Result put(const QString &path)
{
    Result result = failure(EPERM, "not an absolute path of a document");
    QByteArray clean = QFile::encodeName(path);
    while (clean.size() > 1 && clean.endsWith('/')) // else a link would be followed
        clean.chop(1);
    const QList<QByteArray> names = clean.split('/');
    // A text that is no name of a file must not become that of another one.
    const bool isPlain = !names.contains("..") && names.constLast() != "."
        && QFile::decodeName(QFile::encodeName(path)) == path;
    if (clean.startsWith('/') && clean != "/" && isPlain && !clean.contains('\0')) {
        Document document{clean, {}, names.constLast()};
        document.folder = withoutLinks(parentOf(clean));
        struct stat status = {};
        if (document.folder.isEmpty() || ::lstat(document.realPath().constData(), &status) != 0)
            result = failure(errno, "looking at the document");
        else
            result = putAway(document);
    }
    result.path = path;
    return result;
}

} // namespace zel::trash
