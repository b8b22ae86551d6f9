#pragma once

#include "kcloudask.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class KCloudSvrProxy;
namespace zel::vela {
class GetStorageInfoResult;
}

/// Who is signed in and how much of the cloud space is taken, kept current while the service is there: signed
/// out, the space is that of the drive on this computer. GUI thread. Asks the service after each connect,
/// each sign-in or sign-out, and each change of the drive that the service tells; many changes in a row are
/// asked about once.
class CloudSpace : public QObject
{
    Q_OBJECT
public:
    /// `cloud` is not owned and may go first; without one nobody is ever signed in.
    explicit CloudSpace(KCloudSvrProxy *cloud, QObject *parent = nullptr);

    bool isLoggedIn() const { return m_loggedIn; }
    QString accountName() const { return m_account; } ///< empty while nobody is signed in
    bool isLocalAccount() const { return m_local; }   ///< the space is this computer's
    bool isKnown() const { return m_used >= 0; }
    qint64 usedBytes() const { return m_used; }   ///< -1: not known
    qint64 totalBytes() const { return m_total; } ///< 0: no limit

Q_SIGNALS:
    void changed();

public Q_SLOTS:
    void refresh(); ///< asks now

private:
    void onLogin();
    void onPush(const QString &method);
    void refreshSoon();
    void take(const zel::vela::GetStorageInfoResult &room);

    QPointer<KCloudSvrProxy> m_cloud;
    QTimer m_pause{this}; ///< between a change of the drive and the question
    CloudCall m_asking;   ///< the one whose answer counts
    QString m_account;
    QString m_user; ///< whose space it is
    bool m_loginTold = false;
    bool m_loggedIn = false;
    bool m_local = false;
    qint64 m_used = -1;
    qint64 m_total = 0;
};
