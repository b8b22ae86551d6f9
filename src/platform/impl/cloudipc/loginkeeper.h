#pragma once

#include "kcompanyinfocache.h"
#include "krpcresponse.h"
#include "kvelaipclogincache.h"

#include <QObject>
#include <functional>

namespace zel::cloudipc {

/// What the service told last about the user's login. In memory only, and never in the log. GUI thread.
class LoginKeeper final : public QObject
{
    Q_OBJECT
public:
    enum class Tell { WhenChanged, Always };
    /// Asks the service for the login's values, to be answered on the slot.
    using Ask = std::function<void(QObject *receiver, const QString &slot)>;

    explicit LoginKeeper(Ask ask) : m_ask(std::move(ask)) { }

    /// One request at a time: a wish during it leads to one more. Tell::Always holds until a request
    /// succeeds.
    void refresh(Tell tell = Tell::WhenChanged);

    bool isKnown() const { return m_known; }
    const KRpcResponse &answer() const { return m_answer; }
    const KVelaIpcLoginCache &current() const { return m_current; }
    const KVelaIpcLoginCache &last() const { return m_last; } ///< who was signed in last; empty for nobody
    KCompanyInfoCache company() const;

Q_SIGNALS:
    void loginStatusChanged();

private Q_SLOTS:
    void onLoginInfo(bool bOk, const QString &requestId, const KRpcResponse &response);
    /// Answer of a request that signs in or out.
    void onSigned(bool bOk, const QString &requestId, const KRpcResponse &response);

private:
    void take(const KRpcResponse &response);

    Ask m_ask;
    KRpcResponse m_answer;
    KVelaIpcLoginCache m_current;
    KVelaIpcLoginCache m_last;
    bool m_known = false;
    bool m_asking = false;
    bool m_askAgain = false;
    bool m_tellAlways = false;
};

} // namespace zel::cloudipc
