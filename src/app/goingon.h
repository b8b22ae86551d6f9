#pragma once

#include "kcloudask.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class KCloudSvrProxy;
class ZelBoxExitDialog;

/// How many transfers the cloud service has under way, which go on without a window, and without the box. GUI
/// thread. Asks after each connect and each change that the service tells; many in a row are asked about
/// once.
class GoingOn final : public QObject
{
    Q_OBJECT
public:
    explicit GoingOn(QObject *parent = nullptr);

    void follow(KCloudSvrProxy *cloud); ///< not owned; the same again does nothing
    /// Has the service tell the question, now. Nothing when it is not reached; `cloud` may be null.
    static void tell(KCloudSvrProxy *cloud, ZelBoxExitDialog *question);

Q_SIGNALS:
    void changed(int transfers);

private:
    void ask();
    void take(int transfers);

    QPointer<KCloudSvrProxy> m_cloud;
    QTimer m_pause{this}; ///< between a change and the question
    CloudCall m_asking;
    int m_transfers = 0;
};
