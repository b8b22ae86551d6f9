#include "kclientsvrproxy.h"

// The client's windows answer in classes of their own; without one, nobody does.
bool KClientSvrProxy::addBrowserPage(const QString &)
{
    return false;
}

bool KClientSvrProxy::activateWindow(const QString &)
{
    return false;
}

bool KClientSvrProxy::addPlumePage(const QString &)
{
    return false;
}
