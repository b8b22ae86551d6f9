#pragma once

#include "kcloudsvrproxy.h"

#include <QVector>

namespace zel::cloudipc {

/// The proxies that this process has at the moment. GUI thread.
QVector<KCloudSvrProxy *> &liveProxies();

} // namespace zel::cloudipc
