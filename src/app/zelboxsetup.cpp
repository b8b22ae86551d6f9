#include "app/zelboxsetup.h"

#include "app/instancelock.h"
#include "app/zelboxcore.h"

#include <utility>

ZelBoxSetUp *ZelBoxSetUp::instance()
{
    static ZelBoxSetUp setUp;
    return &setUp;
}

void ZelBoxSetUp::slot_onCmdMotify(const QString &cmdline)
{
    zel::takeInstanceLock();
    ZelBoxCore *core = ZelBoxCore::instance();
    if (!core)
        return; // the process is ending
    if (std::exchange(first, false))
        core->init(cmdline); // the host owns the loop, so the result decides nothing
    else
        core->dispatch(cmdline, false);
}
