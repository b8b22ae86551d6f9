#include "launcher/startuptoken.h"

#include <cstdlib>

namespace zel::launcher {
namespace {

std::string environment(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

std::string startupToken()
{
    const std::string text = environment("DESKTOP_STARTUP_ID") + '\n' + environment("XDG_ACTIVATION_TOKEN");
    return text.size() > 1 ? text : std::string();
}

} // namespace zel::launcher
