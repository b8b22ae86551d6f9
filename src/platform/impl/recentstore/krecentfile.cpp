#include "krecentfile.h"

#include "recentproxy.h"

#include <QCoreApplication>

namespace {

using zel::recent::RecentPlaces;
using zel::recent::RecentProxy;

std::unique_ptr<RecentProxy> &store()
{
    static std::unique_ptr<RecentProxy> proxy;
    return proxy;
}

} // namespace

KRecentFileProxy *KRecentFileProxy::instance()
{
    return store().get();
}

KRecentFileEvents *RecentFileEventObject()
{
    static auto *events =
        new KRecentFileEvents; // never destroyed: the store, a static itself, speaks to the last
    return events;
}

void InitRecentFile(WorkMode mode)
{
    if (store())
        return;
    store() = std::make_unique<RecentProxy>(RecentPlaces::fromEnvironment(), mode, *RecentFileEventObject());
    // Should nobody stop it, it must not outlive the application object's end by accident.
    qAddPostRoutine(UninitRecentFile);
}

void UninitRecentFile()
{
    qRemovePostRoutine(UninitRecentFile);
    store().reset();
}
