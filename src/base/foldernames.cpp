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
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    if (posix::mayHang(place + '/' + entry.d_name, mounts))
        return true;
    struct stat status = {};
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
        if (entry->d_name[0] != '.')
            names.append({QFile::decodeName(entry->d_name), isFolder(number, *entry, place, mounts)});
    }
    return names;
}

} // namespace zel
