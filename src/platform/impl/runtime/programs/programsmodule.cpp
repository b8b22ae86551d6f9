#include "programs/programsmodule.h"

#include "base/logging.h"
#include "codefolder.h"

#include <QFile>

#include <dlfcn.h>

#define ZEL_TEXT(name) #name
#define ZEL_NAME(name) ZEL_TEXT(name)

namespace zel::platform {
namespace {

using Entry = const ProgramsModule *(*)();

const ProgramsModule *load()
{
    // Beside the library that this is in; a program of the build tree has its libraries in a folder next to
    // it.
    QByteArray errors;
    for (const char *place : {"/libzelprograms.so", "/../lib/libzelprograms.so"}) {
        const QByteArray file = QFile::encodeName(codeFolder()) + place;
        void *module = ::dlopen(file.constData(), RTLD_NOW | RTLD_LOCAL);
        const auto entry =
            module ? reinterpret_cast<Entry>(::dlsym(module, ZEL_NAME(ZEL_PROGRAMS_SYMBOL))) : nullptr;
        if (entry)
            return entry();
        errors += QByteArray("; ") + ::dlerror();
    }
    qCWarning(lcPlatform, "the desktop's programs cannot be looked up%s", errors.constData());
    return nullptr;
}

} // namespace

const ProgramsModule *programsModule()
{
    static const ProgramsModule *const module = load(); // never closed: its libraries do not bear that
    return module;
}

} // namespace zel::platform
