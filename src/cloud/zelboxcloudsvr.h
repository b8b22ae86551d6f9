#pragma once

#include "kcloudsvrproxy.h"

/// The one object through which the box reaches the cloud-service process. GUI thread.
/// The application object creates it in a process of its own; in a host the core does.
class ZelBoxCloudSvr : public KCloudSvrProxy
{
    Q_OBJECT
public:
    /// Connects its own velaInited() to onVelaInited().
    explicit ZelBoxCloudSvr(QObject *parent = nullptr);

    bool isInited() const { return m_connectedOnce; } ///< the service has been there at least once

public Q_SLOTS:
    void onVelaInited();
    /// Asks for the start of the service 200 ms later, when the first window has had its time to paint.
    void onFirstMainWindowShown();
    void onStartVelaProcess();

private:
    bool m_connectedOnce = false;
};
