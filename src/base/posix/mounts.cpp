#include "base/posix/mounts.h"

#include <algorithm>
#include <array>
#include <climits>
#include <deque>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace zel::posix {
namespace {

using Texts = std::vector<std::string_view>;

Texts split(std::string_view text, char separator)
{
    Texts parts;
    for (;;) {
        const size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool isOctal(std::string_view digits)
{
    return digits.size() == 3 && digits.find_first_not_of("01234567") == std::string_view::npos;
}

// The kernel writes blank, tab, line feed and backslash as three octal digits.
std::string unescaped(std::string_view field)
{
    std::string text;
    for (size_t i = 0; i < field.size(); ++i) {
        const std::string_view digits = field.substr(i + 1, 3);
        if (field[i] != '\\' || !isOctal(digits)) {
            text += field[i];
            continue;
        }
        text += char((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
        i += 3;
    }
    return text;
}

std::string linkTarget(const std::string &path)
{
    char target[PATH_MAX];
    const ssize_t size = ::readlink(path.c_str(), target, sizeof target);
    return size > 0 ? std::string(target, size_t(size)) : std::string();
}

std::string_view folderOf(std::string_view path)
{
    const size_t end = path.rfind('/');
    return path.substr(0, end == std::string_view::npos ? 1 : std::max<size_t>(1, end));
}

constexpr int MostLinks = 40; // as many as the kernel follows

// Walks a path by its names, as far as that is safe.
class Walk
{
public:
    explicit Walk(std::string_view mountInfo) : m_mountInfo(mountInfo) { }

    /// Goes on with the name, and with those that it links to. False: that leads to a mount which may hang.
    bool enter(std::string_view name);
    const std::string &mountPoint() const { return m_mount.point; }

private:
    const std::string_view m_mountInfo;
    std::string m_resolved; ///< without a slash at the end
    Mount m_mount;
    int m_links = 0;
};

bool Walk::enter(std::string_view name)
{
    std::deque<std::string> names{std::string(name)};
    while (!names.empty()) {
        const std::string next = std::move(names.front());
        names.pop_front();
        if (next.empty() || next == ".")
            continue;
        if (next == "..") {
            m_resolved.resize(m_resolved.empty() ? 0 : m_resolved.rfind('/'));
            continue;
        }
        const std::string path = m_resolved + '/' + next;
        m_mount = mountOf(path, m_mountInfo);
        if (!isLocalType(m_mount.type))
            return false;
        const std::string target = m_links < MostLinks ? linkTarget(path) : std::string();
        if (target.empty()) {
            m_resolved = path;
            continue;
        }
        ++m_links;
        if (target.front() == '/')
            m_resolved.clear();
        const Texts linked = split(target, '/');
        names.insert(names.begin(), linked.cbegin(), linked.cend());
    }
    return true;
}

} // namespace

std::string mountTable()
{
    std::ifstream table("/proc/self/mountinfo", std::ios::binary);
    return {std::istreambuf_iterator<char>(table), {}};
}

bool mayHang(std::string_view path, std::string_view mountInfo)
{
    return !deadPlaceOf(path, mountInfo).mounts.empty();
}

bool isBelow(std::string_view path, std::string_view folder)
{
    return path.starts_with(folder)
        && (folder == "/" || path.size() == folder.size() || path[folder.size()] == '/');
}

// A line: ids, device, root, mount point, options, optional fields, "-", type, source, options.
Mount mountOf(std::string_view path, std::string_view mountInfo)
{
    constexpr size_t PointField = 4;
    constexpr ptrdiff_t FirstOptional = 6;
    Mount best{"/", {}};
    for (const std::string_view line : split(mountInfo, '\n')) {
        const Texts fields = split(line, ' ');
        const std::string point = fields.size() > PointField ? unescaped(fields[PointField]) : std::string();
        // Of several mounts on one point the last hides the others.
        if (point.size() < best.point.size() || !isBelow(path, point))
            continue;
        const auto optional = fields.begin() + std::min<ptrdiff_t>(FirstOptional, std::ssize(fields));
        const auto separator = std::find(optional, fields.end(), "-");
        const bool hasType = std::distance(separator, fields.end()) > 1;
        best = {point, hasType ? std::string(separator[1]) : std::string()};
    }
    return best;
}

bool isLocalType(std::string_view type)
{
    static constexpr std::array<std::string_view, 21> Local{"ext2", "ext3", "ext4", "xfs", "btrfs",
        "bcachefs", "zfs", "f2fs", "jfs", "reiserfs", "vfat", "exfat", "ntfs3", "iso9660", "udf", "squashfs",
        "erofs", "tmpfs", "ramfs", "devtmpfs", "overlay"};
    return std::find(Local.begin(), Local.end(), type) != Local.end();
}

DeadPlace deadPlaceOf(std::string_view path, std::string_view mountInfo)
{
    Walk walk(mountInfo);
    for (size_t end = 0; end < path.size();) {
        const size_t next = std::min(path.find('/', end + 1), path.size());
        if (!walk.enter(path.substr(end + 1, next - end - 1))) {
            if (walk.mountPoint() == "/")
                break;
            DeadPlace dead{{walk.mountPoint()}, {}};
            const std::string_view way = path.substr(0, next);
            if (!isBelow(way, walk.mountPoint()))
                dead.mounts.emplace_back(way);
            return dead;
        }
        end = next;
    }
    return {{}, std::string(folderOf(path))};
}

void DeadPlaces::add(const std::string &path)
{
    DeadPlace dead = deadPlaceOf(path, mountTable());
    if (!dead.folder.empty())
        m_folders.push_back(std::move(dead.folder));
    std::move(dead.mounts.begin(), dead.mounts.end(), std::back_inserter(m_mounts));
}

bool DeadPlaces::contains(std::string_view path) const
{
    const auto isAround = [&](const std::string &mount) { return isBelow(path, mount); };
    return std::find(m_folders.cbegin(), m_folders.cend(), folderOf(path)) != m_folders.cend()
        || std::any_of(m_mounts.cbegin(), m_mounts.cend(), isAround);
}

} // namespace zel::posix
