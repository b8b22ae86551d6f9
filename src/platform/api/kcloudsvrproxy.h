#pragma once

#include "zelplatform_export.h"

#include <QObject>
#include <memory>

/// The box's end of the link to the cloud-service process. GUI thread.
/// Starts the process, keeps one connection to it and tells when it is there. Requests join it with the wire
/// records.
class ZELPLATFORM_EXPORT KCloudSvrProxy : public QObject
{
    Q_OBJECT
public:
    explicit KCloudSvrProxy(QObject *parent = nullptr);
    ~KCloudSvrProxy() override;

    /// Connects to a running service, else starts `zelcloud` with `arguments` (blank-separated) and connects
    /// once it listens. Returns at once; velaInited() follows on success, a log line on failure.
    virtual void startVelaProcess(const QString &arguments);
    bool isConnected() const;

Q_SIGNALS:
    void velaInited(); ///< the service is there; also after it came back from a crash
    void loginStatusChanged();
    void socketLost(); ///< the connection dropped

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// Base of the object that answers the service's requests about the client's own windows. GUI thread.
class ZELPLATFORM_EXPORT KClientSvrProxy : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual bool addBrowserPage(const QString &url);
    virtual bool activateWindow(
        const QString &windowIdentity); ///< brings the named window of the client forward
    virtual bool addPlumePage(const QString &url);
};
