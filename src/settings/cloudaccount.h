#pragma once

#include "cloud/cloudspace.h"

#include <QObject>
#include <QPointer>

class KCloudSvrProxy;
namespace zel::vela {
class LogoutResult;
}

/// The account as the settings show it: whether the service is there, who is signed in, where the drive lies
/// and how much is in it, kept current. GUI thread.
class CloudAccount final : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Away,   ///< the service is not there
        Asking, ///< it is, but has not told yet who is signed in
        SignedOut,
        SignedIn,
    };
    Q_ENUM(State)
    enum class Problem {
        Failed,      ///< the service refused, or went away meanwhile
        UploadsWait, ///< signing out would drop them
    };
    Q_ENUM(Problem)

    /// `cloud` is not owned, may be null (then the service is away for ever) and may be destroyed first.
    explicit CloudAccount(KCloudSvrProxy *cloud, QObject *parent = nullptr);

    State state() const;
    bool isBusy() const { return m_signing.isWaiting(); } ///< signing in or out
    QString name() const { return m_space.accountName(); }
    QString folder() const { return m_folder; } ///< of the drive on this computer; empty: not known
    const CloudSpace &space() const { return m_space; }

    void signIn(); ///< the local account; changed() or failed() follows
    void signOut(bool dropUploads = false);
    void startService(); ///< when it is away; changed() follows when it is there

Q_SIGNALS:
    void changed();
    void failed(CloudAccount::Problem problem, int waitingUploads);

private:
    bool isReached() const;
    void askFolder();
    void onSignedOut(const CloudReply<zel::vela::LogoutResult> &reply);
    void end(bool done);

    QPointer<KCloudSvrProxy> m_cloud;
    CloudSpace m_space;
    CloudCall m_signing; ///< in or out
    QString m_folder;
};
