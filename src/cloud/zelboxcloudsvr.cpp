#include "cloud/zelboxcloudsvr.h"

#include "base/logging.h"

#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

namespace {
constexpr auto StartDelay = 200ms;
}

ZelBoxCloudSvr::ZelBoxCloudSvr(QObject *parent) : KCloudSvrProxy(parent)
{
    connect(this, &KCloudSvrProxy::velaInited, this, &ZelBoxCloudSvr::onVelaInited);
}

void ZelBoxCloudSvr::onVelaInited()
{
    if (m_connectedOnce)
        return;
    m_connectedOnce = true;
    qCInfo(lcCloud, "cloud service is there");
}

void ZelBoxCloudSvr::onFirstMainWindowShown()
{
    QTimer::singleShot(StartDelay, this, &ZelBoxCloudSvr::onStartVelaProcess);
}

void ZelBoxCloudSvr::onStartVelaProcess()
{
    startVelaProcess(QString());
}
