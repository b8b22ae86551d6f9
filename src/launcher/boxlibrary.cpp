#include "launcher/boxlibrary.h"

#include <climits>
#include <dlfcn.h>
#include <unistd.h>

namespace zel::launcher {
namespace {

std::string ownFolder()
{
    char path[PATH_MAX];
    const ssize_t size = ::readlink("/proc/self/exe", path, sizeof(path));
    if (size <= 0 || size == sizeof(path))
        return {};
    const std::string program(path, static_cast<std::size_t>(size));
    return program.substr(0, program.rfind('/'));
}

void *load(const std::string &path, std::string &errors)
{
    void *library = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_GLOBAL);
    if (library == nullptr)
        errors += std::string("\n  ") + ::dlerror();
    return library;
}

} // namespace

BoxLibrary loadBox()
{
    const std::string lib = ownFolder() + "/../lib";
    std::string errors;
    void *library = load(lib + "/libzelbox.so", errors);
    if (library == nullptr)
        library = load(lib + "/zelbox/libzelbox.so", errors);
    if (library == nullptr)
        return {nullptr, "cannot load the box:" + errors};
    void *symbol = ::dlsym(library, "EntryPoint");
    if (symbol == nullptr)
        return {nullptr, std::string("the box has no entry: ") + ::dlerror()};
    return {reinterpret_cast<EntryPointFunction>(symbol), {}};
}

} // namespace zel::launcher
