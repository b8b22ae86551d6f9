#pragma once

#include "krecentfile.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class KCloudSvrProxy;
template <class Answer> struct CloudReply;
namespace zel::vela {
class RemoveResult;
}

/// What the Recent page asks of the cloud service, in its own terms: the only place here that names fields of
/// wire records. GUI thread; nothing blocks, and every answer comes on a later turn of the loop. Without a
/// proxy nobody is logged in and every request ends as failed.
class RecentCloud : public QObject
{
    Q_OBJECT
public:
    enum class Ended {
        Done,
        Refused,    ///< the service answered that it did not
        NotReached, ///< no answer: what was asked for may still be done
    };
    Q_ENUM(Ended)

    /// `proxy` is not owned and may be destroyed first.
    explicit RecentCloud(KCloudSvrProxy *proxy, QObject *parent = nullptr);

    bool isLoggedIn() const;
    bool isReached() const;    ///< the service is there
    bool isLoginKnown() const; ///< the service has said who is logged in, if anybody
    bool isInCloud(
        const RecentFileInfo &record) const; ///< as far as was told: the user's cloud has this file
    KCloudSvrProxy *proxy() const;

    /// Lets the service show its dialog for sharing; shareEnded() follows. Does nothing when nobody is logged
    /// in.
    void share(const RecentFileInfo &record);
    /// Puts the file into the recycle bin, that of the cloud or of this desktop; removeEnded() follows.
    void remove(const RecentFileInfo &record);
    void recover(const QString &recycleId); ///< recoverEnded() follows
    /// Takes records off the list of all devices; those that the service does not know are left out.
    void forget(const RecordInfoList &records);
    void report(const RecentFileInfo &record); ///< tells that the document is harmful; no answer
    void askForRoaming();                      ///< roamingTold() follows when there is an answer

Q_SIGNALS:
    void loginChanged(bool loggedIn); ///< or another user
    void loginTold();                 ///< after each connect and each change; follows loginChanged()
    void shareEnded(const RecentFileInfo &record, RecentCloud::Ended ended);
    /// `recycleId` brings it back; empty unless it is done.
    void removeEnded(const RecentFileInfo &record, RecentCloud::Ended ended, const QString &recycleId);
    void recoverEnded(const QString &recycleId, RecentCloud::Ended ended);
    void roamingTold(bool on); ///< whether uses of files reach the user's other devices

private:
    void onLoginStatusChanged();
    void onRemoveFinished(const RecentFileInfo &record, const CloudReply<zel::vela::RemoveResult> &reply);

    QPointer<KCloudSvrProxy> m_proxy;
    QString m_user; ///< empty: nobody is logged in
};
