#pragma once

#include "kclientsvrproxy.h"

/// Answers the cloud service's requests about the box's own windows. GUI thread.
class ZelBoxClientSvrProxy : public KClientSvrProxy
{
    Q_OBJECT
public:
    using KClientSvrProxy::KClientSvrProxy;

    static QString windowIdentity(); ///< "mainbox"

    /// Asks for the main window when `identity` is ours or empty; false for any other.
    bool activateWindow(const QString &identity) override;

    bool isMainWindowOpen() const { return m_mainWindowOpen; }

public Q_SLOTS:
    void onWindowOpened();
    void onWindowClose(); ///< the main window was closed or hidden

Q_SIGNALS:
    void activateRequested();

private:
    bool m_mainWindowOpen = false;
};
