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

int chosenSources = RecentSource::All;

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
    if (chosenSources != RecentSource::All)
        store()->setSources(chosenSources);
    store()->prepare();
    // Should nobody stop it, it must not outlive the application object's end by accident.
    qAddPostRoutine(UninitRecentFile);
}

void UninitRecentFile()
{
    qRemovePostRoutine(UninitRecentFile);
    store().reset();
}

void SetRecentSources(int sources)
{
    chosenSources = sources & RecentSource::All;
    if (store())
        store()->setSources(chosenSources);
}

int RecentSources()
{
    return chosenSources;
}

void ClearRecentHistory(bool serviceListCleared)
{
    InitRecentFile(WorkMode::Full);
    store()->clearHistory(serviceListCleared);
}
