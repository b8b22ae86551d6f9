#include "cloud/zelboxclientsvrproxy.h"

QString ZelBoxClientSvrProxy::windowIdentity()
{
    return QStringLiteral("mainbox");
}

bool ZelBoxClientSvrProxy::activateWindow(const QString &identity)
{
    if (!identity.isEmpty() && identity != windowIdentity())
        return false;
    Q_EMIT activateRequested();
    return true;
}

void ZelBoxClientSvrProxy::onWindowOpened()
{
    m_mainWindowOpen = true;
}

void ZelBoxClientSvrProxy::onWindowClose()
{
    m_mainWindowOpen = false;
}
