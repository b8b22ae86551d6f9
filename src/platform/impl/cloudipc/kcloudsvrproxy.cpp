#include "kcloudsvrproxy.h"

#include "base/logging.h"
#include "cloudlink.h"

#include <QStringList>
#include <krt/krt.h>

class KCloudSvrProxy::Private
{
public:
    zel::cloudipc::CloudLink link;
};

KCloudSvrProxy::KCloudSvrProxy(QObject *parent) : QObject(parent), d(std::make_unique<Private>())
{
    connect(&d->link, &zel::cloudipc::CloudLink::up, this, &KCloudSvrProxy::velaInited);
    connect(&d->link, &zel::cloudipc::CloudLink::lost, this, &KCloudSvrProxy::socketLost);
}

KCloudSvrProxy::~KCloudSvrProxy() = default;

void KCloudSvrProxy::startVelaProcess(const QString &arguments)
{
    const QString folder = krt::dirs::programs();
    if (folder.isEmpty()) {
        qCWarning(lcPlatform, "no cloud service: the folder of programs is not known");
        return;
    }
    const QStringList own = {QStringLiteral("--exit-with-last-client")};
    d->link.start(
        folder + QStringLiteral("/zelcloud"), own + arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

bool KCloudSvrProxy::isConnected() const
{
    return d->link.isConnected();
}

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
