#include "launcher/privatesurroundings.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace zel::launcher {
namespace {

constexpr const char *folders[][2] = {
    {"XDG_RUNTIME_DIR", "run"},
    {"XDG_CONFIG_HOME", "config"},
    {"XDG_DATA_HOME", "data"},
    {"XDG_STATE_HOME", "state"},
    {"XDG_CACHE_HOME", "cache"},
    {"TMPDIR", "tmp"},
};

std::string environment(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

// Both are found through the runtime folder that is about to be replaced, unless they are named in full.
void keepDisplayAndBus()
{
    const std::string runtime = environment("XDG_RUNTIME_DIR");
    if (runtime.empty())
        return;
    const std::string display = environment("WAYLAND_DISPLAY");
    if (!display.empty() && display.front() != '/')
        ::setenv("WAYLAND_DISPLAY", (runtime + '/' + display).c_str(), 1);
    const std::string bus = runtime + "/bus";
    if (environment("DBUS_SESSION_BUS_ADDRESS").empty() && ::access(bus.c_str(), F_OK) == 0)
        ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + bus).c_str(), 1);
}

} // namespace

PrivateSurroundings::~PrivateSurroundings()
{
    std::error_code ignored;
    if (!m_folder.empty())
        std::filesystem::remove_all(m_folder, ignored);
}

bool PrivateSurroundings::enter()
{
    const std::string temporary = environment("TMPDIR");
    const std::string folderName = "/zelbox-self-test-XXXXXX";
    // Too long for the sockets, the box would take a runtime folder that is not private to the test.
    const std::size_t longest = temporary.size() + folderName.size() + sizeof("/run/zelbox/zelbox.sock");
    const bool usable = temporary.starts_with('/') && longest <= sizeof(sockaddr_un::sun_path);
    std::string name = (usable ? temporary : "/tmp") + folderName;
    if (::mkdtemp(name.data()) == nullptr)
        return false;
    m_folder = name;
    keepDisplayAndBus();
    for (const auto &[variable, subfolder] : folders) {
        const std::string path = m_folder + '/' + subfolder;
        if (::mkdir(path.c_str(), 0700) != 0 || ::setenv(variable, path.c_str(), 1) != 0)
            return false;
    }
    return true;
}

} // namespace zel::launcher
