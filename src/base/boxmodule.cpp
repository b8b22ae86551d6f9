#include "base/boxmodule.h"

#include "base/logging.h"

#include <QByteArray>

#include <dlfcn.h>

namespace {

QByteArray ownFolder()
{
    Dl_info info = {};
    if (::dladdr(reinterpret_cast<const void *>(&ownFolder), &info) == 0)
        return {};
    const QByteArray file = info.dli_fname;
    return file.left(file.lastIndexOf('/'));
}

} // namespace

void *zel::boxModuleFunction(const char *file, const char *symbol)
{
    QByteArray errors;
    for (const char *place : {"/", "/../lib/"}) {
        const QByteArray path = ownFolder() + place + file;
        void *module = ::dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
        if (void *function = module ? ::dlsym(module, symbol) : nullptr)
            return function;
        errors += QByteArray("; ") + ::dlerror();
    }
    qCWarning(lcApp, "a part of the box cannot be loaded%s", errors.constData());
    return nullptr;
}
