#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the kernel's table of mounts (/proc/self/mountinfo) says of paths. A dead network mount holds whoever
/// touches it, so nothing here touches a file system that may hang. Paths are absolute and clean, in the file
/// system's bytes. Any thread.
namespace zel::posix {

struct Mount
{
    std::string point;
    std::string type; ///< of the file system, as the kernel names it
};

/// Mount that the path lies on, by the text of the kernel's table. "/" when none fits.
Mount mountOf(std::string_view path, std::string_view mountInfo);

/// File systems on disks and in memory of this machine, which always answer sooner or later.
bool isLocalType(std::string_view type);

std::string mountTable(); ///< the kernel's; empty when it cannot be read

/// Whether a look at what is there may wait for a network or another program: the path leads, by its links,
/// to a file system that is not this machine's.
bool mayHang(std::string_view path, std::string_view mountInfo);

bool isBelow(std::string_view path, std::string_view folder); ///< or the folder itself

/// What to leave alone after a look at a file has not returned.
struct DeadPlace
{
    std::vector<std::string> mounts; ///< all below: mount point and link that leads there; never "/"
    std::string folder;              ///< only what lies right in it; empty when there are mounts
};

/// Links are followed by reading them one by one, as far as they lie on local file systems.
DeadPlace deadPlaceOf(std::string_view path, std::string_view mountInfo);

/// Places that are left alone from then on. A value; not for several threads at once.
class DeadPlaces
{
public:
    void add(const std::string &path); ///< a look at this file has not returned; reads the kernel's table
    bool contains(std::string_view path) const;
    bool isEmpty() const { return m_folders.empty() && m_mounts.empty(); }

private:
    std::vector<std::string> m_folders; ///< their own files, not what is deeper
    std::vector<std::string> m_mounts;  ///< everything below
};

} // namespace zel::posix
