#pragma once

#include "kclientsvrproxy.h"
#include "kcompanyinfocache.h"
#include "krpcresponse.h"
#include "kvelaeventobject.h"
#include "kvelaipclogincache.h"
#include "kvelatypes.h"
#include "zelplatform_export.h"

#include <QGenericArgument>
#include <QObject>
#include <chrono>
#include <memory>

/// The client's end of the link to the cloud-service process: requests, the user's login, pushes. Starts the
/// process, keeps one connection to it and comes back after a loss. GUI thread; nothing blocks.
///
/// A request returns its id at once and ends exactly once, on the receiver's slot of the given name,
///     void slot(bool bOk, const QString &requestId, const X &answer)
/// where X is the answer's record or KRpcResponse. The slot is never called inside the request. `bOk` is true
/// when the service answered, also with an error, which the answer's `state` then tells. It is false, on a
/// later turn of the loop and with a default answer, when the request was refused, timed out or cancelled,
/// the connection was lost, or there is none. While a connection is being made, requests wait for its
/// outcome. Nothing is called once the receiver or the proxy is gone. A slot may do anything, also destroy
/// either.
class ZELPLATFORM_EXPORT KCloudSvrProxy : public QObject
{
    Q_OBJECT
public:
    explicit KCloudSvrProxy(QObject *parent = nullptr);
    ~KCloudSvrProxy() override;

    // The order of the virtual operations is part of the contract.

    /// A method that takes a list of texts, which may be empty.
    virtual QString asyncCall(
        const QString &method, const QStringList &args, QObject *receiver, const QString &slot);
    /// A method that takes a record: `arg` is its class name, with or without "zel::vela::", and its address.
    /// It is copied before this returns. No receiver or slot: the answer is not wanted.
    virtual QString asynCallEx(
        const QString &method, const QGenericArgument &arg, QObject *receiver, const QString &slot);
    /// Ends a request with `bOk` false; false when it has ended already. What it asked for may still be done.
    virtual bool cancelCall(const QString &requestId);

    /// Of the login as the service told last: after each connect and each change. Empty before.
    virtual QMap<QString, QString> getLoginInfoMap();
    virtual QString queryLoginInfo(const QString &key);
    /// False, and nothing written, before the service told.
    virtual bool getUserLoginInfo(KVelaIpcLoginCache *cache);
    /// Who was signed in last, also after the sign-out; false when nobody was since the start.
    virtual bool getLastUserLoginInfo(KVelaIpcLoginCache *cache);
    virtual bool getUserCompanyInfo(KCompanyInfoCache *cache); ///< false when there is none
    virtual bool getLoginInfoIpcRes(KRpcResponse *response);   ///< the service's last answer as it came
    virtual QString getCurrentSettingRootPath();

    /// These return a request's id; what came of it is told by loginStatusChanged().
    virtual QString login(AdType type, const QString &name, const QString &password);
    virtual QString loginEx(const QString &ticket); ///< by a ticket that a web page handed over
    virtual QString logout(const QString &reason);
    virtual bool isLogined();
    virtual bool isVip(VipType type); ///< of exactly this kind

    virtual QString openAutoLoginUrl(const QString &url);  ///< in the browser, as the signed-in user
    virtual QString cmdNotify(const QString &commandline); ///< a command line for the service itself
    virtual QString clientIdentity();                      ///< the name this client introduces itself by
    /// Tells the event object's listeners in this process.
    virtual void notify(const QString &name, const QVariant &first, const QVariant &second);

    /// Connects to a running service, else starts `zelcloud` with `arguments` (blank-separated) and connects
    /// once it listens. Returns at once; velaInited() follows on success, a log line on failure.
    virtual void startVelaProcess(const QString &arguments);

    bool isConnected() const; ///< and introduced
    /// Why the service refused the connection, for the log; empty unless it did. No further try is made then
    /// before the next startVelaProcess().
    QString linkError() const;
    KVelaEventObject *velaEventObject() const; ///< owned by the proxy
    /// Is asked when the service wants something of the client's windows; the first to do it ends the round.
    void addClientProxy(KClientSvrProxy *client);
    /// How long a request of any method may take from now on; zero for each method's own time, 30 s or more.
    void setCallTimeout(std::chrono::milliseconds timeout);

Q_SIGNALS:
    void velaInited(); ///< the service is there; also after it came back from a crash
    void loginStatusChanged();
    void linkRefused(const QString &why); ///< as linkError()

private:
    class Private;
    std::unique_ptr<Private> d;
};
