#pragma once

#include "kcloudsvrproxy.h"

#include <memory>

struct CloudCredentials;
namespace zel::vela {
class BatchUploadFilesToCloudArg;
class ChangeContentSearchStatusArg;
class CloudDocContentSearchArg;
class CloudDocSearchArg;
class DownloadCloudFileArg;
class GetContentSearchStatusArg;
class UploadFolderToCloudArg;
} // namespace zel::vela

/// The one object through which the box reaches the cloud-service process. GUI thread.
/// The application object creates it in a process of its own; in a host the core does.
class ZelBoxCloudSvr : public KCloudSvrProxy
{
    Q_OBJECT
public:
    /// Connects its own velaInited() to onVelaInited().
    explicit ZelBoxCloudSvr(QObject *parent = nullptr);
    ~ZelBoxCloudSvr() override;

    bool isInited() const { return m_connectedOnce; } ///< the service has been there at least once
    const CloudCredentials &credentials() const
    {
        return *m_credentials;
    } ///< empty until the service told them

    QString clientIdentity() override; ///< "mainbox"

    // Each is one request; its id is returned and its answer comes on the receiver's slot.
    QString cloudDocSearch(const zel::vela::CloudDocSearchArg &arg, QObject *receiver, const QString &slot);
    QString cloudDocContentSearch(
        const zel::vela::CloudDocContentSearchArg &arg, QObject *receiver, const QString &slot);
    QString getContentSearchStatus(
        const zel::vela::GetContentSearchStatusArg &arg, QObject *receiver, const QString &slot);
    QString changeContentSearchStatus(
        const zel::vela::ChangeContentSearchStatusArg &arg, QObject *receiver, const QString &slot);
    QString batchUploadFileListToAnyExistedPath(
        const zel::vela::BatchUploadFilesToCloudArg &arg, QObject *receiver, const QString &slot);
    QString folderUpload(
        const zel::vela::UploadFolderToCloudArg &arg, QObject *receiver, const QString &slot);
    QString downloadFileFromCloud(
        const zel::vela::DownloadCloudFileArg &arg, QObject *receiver, const QString &slot);
    /// Stops transfers; ids must not contain "|".
    QString cancelTask(const QStringList &taskIDs, QObject *receiver, const QString &slot);
    QString redirect(const QString &url);         ///< in the browser, as the signed-in user; no answer
    QString showUpgradeVip(const QString &query); ///< as zel::upgrade::query() makes it; no answer

Q_SIGNALS:
    void velaOffline();
    void vipInfoUpdated(); ///< the login state is another one
    void socketConnected();
    void socketDisconnected();
    void signal_vipInfoChanged(const QMap<QString, QString> &info);
    void notifyRecentFileListChanged();
    void notifyFileCreation(const NotifyFileCreationArg &arg);
    void notifyNewMsgListArrived(const QStringList &newMsgList);
    void notifyActionsMapForReadMessage(const QMap<QString, QString> &mapArgs);
    void notifyShareDiscussion(const QMap<QString, QString> &mapArgs);
    void notifyUserThumbnail(const NotifyUserThumbnailArg &arg);
    void notifyRecentFileStateChanged(const QVector<zel::vela::CloudItem> &item);

public Q_SLOTS:
    void onLoginStatusChanged();
    void onVipInfoChanged(const QVariant &info);
    void onVelaInited();
    /// Asks for the start of the service 200 ms later, when the first window has had its time to paint.
    void onFirstMainWindowShown();
    void onStartVelaProcess();
    void onUpdateLoginInfo(bool bOk, const QString &requestId, const KRpcResponse &res);

private:
    void relayEvents();

    bool m_connectedOnce = false;
    int m_lastLoginState = -1; ///< the one seen last
    std::unique_ptr<CloudCredentials> m_credentials;
};
