#include "base/foldernames.h"

#include "base/posix/mounts.h"
#include "base/posix/uniquefd.h"

#include <QFile>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace zel {
namespace {

bool isFolder(int folder, const dirent &entry, const std::string &place, const std::string &mounts)
{
    struct stat status = {};
    bool isLink = entry.d_type == DT_LNK;
    if (entry.d_type == DT_UNKNOWN) { // the file system that is being read knows
        if (::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0)
            return false;
        isLink = S_ISLNK(status.st_mode);
    }
    if (!isLink)
        return entry.d_type == DT_DIR || S_ISDIR(status.st_mode);
    if (posix::mayHang(place + '/' + entry.d_name, mounts))
        return true;
    return ::fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::optional<FolderNames> namesIn(const QString &folder)
{
    const std::string place = QFile::encodeName(folder).toStdString();
    posix::UniqueFd opened(::open(place.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR *)> stream(
        opened ? ::fdopendir(opened.get()) : nullptr, &::closedir);
    if (!stream)
        return {};
    const int number = opened.release(); // the stream's now
    const std::string mounts = posix::mountTable();
    FolderNames names;
    while (const dirent *entry = ::readdir(stream.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (entry->d_name[0] != '.' && QFile::encodeName(name) == entry->d_name)
            names.append({name, isFolder(number, *entry, place, mounts)});
    }
    return names;
}

} // namespace zel
