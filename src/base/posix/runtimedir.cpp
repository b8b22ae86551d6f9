#include "base/posix/runtimedir.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace zel::posix {
namespace {

std::string problem(const std::string &path, const char *what)
{
    return path + ": " + what;
}

// Makes the folder if it is missing and says what is wrong with it; empty when it is private and ours.
std::string makePrivate(const std::string &path)
{
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
        return problem(path, std::strerror(errno));
    struct stat info = {};
    // lstat: a symbolic link in a shared temporary folder may have been planted by someone else.
    if (::lstat(path.c_str(), &info) != 0)
        return problem(path, std::strerror(errno));
    if (!S_ISDIR(info.st_mode))
        return problem(path, "is not a folder");
    if (info.st_uid != ::geteuid())
        return problem(path, "belongs to another user");
    if ((info.st_mode & 0077) != 0 && ::chmod(path.c_str(), 0700) != 0)
        return problem(path, "is open to other users");
    return {};
}

// After su, and in containers, the variable may name a folder of somebody else or none at all.
bool isOurs(const char *folder)
{
    struct stat info = {};
    return ::stat(folder, &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid();
}

// The kernel takes socket paths of 107 bytes at most; this is our longest name.
bool hasRoomForSockets(const std::string &folder)
{
    return folder.size() + sizeof("/zelbox.sock") <= sizeof(sockaddr_un::sun_path);
}

std::string runtimePath()
{
    const char *runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && runtime[0] == '/' && isOurs(runtime)) {
        std::string path = std::string(runtime) + "/zelbox";
        if (hasRoomForSockets(path))
            return path;
    }
    const std::string name = "/zelbox-" + std::to_string(::getuid());
    const char *temporary = std::getenv("TMPDIR");
    const bool usable = temporary != nullptr && temporary[0] == '/' && hasRoomForSockets(temporary + name);
    return (usable ? temporary : "/tmp") + name;
}

} // namespace

RuntimeDir openRuntimeDir()
{
    std::string path = runtimePath();
    std::string error = makePrivate(path);
    if (!error.empty())
        return {{}, std::move(error)};
    return {std::move(path), {}};
}

} // namespace zel::posix
