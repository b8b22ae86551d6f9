#pragma once

#include "cloud/wire/texts.h"
#include "zelplatform_export.h"

#include <QMetaType>
#include <QPointer>
#include <functional>
#include <typeinfo>

class KCloudSvrProxy;

/// How a request ended. Unless it was answered or refused, what it asked for may still be done.
enum class CloudEnd {
    Answered,
    Refused,  ///< the service answered that it did not do it
    Rejected, ///< nobody understood the request: our mistake, or a service of another version
    TimedOut,
    Cancelled, ///< by its CloudCall
    Gone,      ///< the service, its connection or the proxy went, or was not there
};

/// What came of a request. Valid while its continuation runs.
template <class Answer> struct CloudReply
{
    CloudEnd end;
    int error;            ///< of Refused: the number of a zel::wire::ServiceError; else 0
    QString detail;       ///< one English sentence for the log; empty when there is nothing to say
    const Answer &record; ///< a default one unless the service answered or refused

    explicit operator bool() const { return end == CloudEnd::Answered; }
    bool wasReached() const { return end <= CloudEnd::Refused; } ///< the service has decided
};

/// A request that waits; a value. Going out of scope changes nothing.
class ZELPLATFORM_EXPORT CloudCall
{
public:
    CloudCall() = default;
    explicit CloudCall(QObject *request) : m_request(request) { }
    bool isWaiting() const;
    /// Ends it with CloudEnd::Cancelled, on a later turn of the loop; nothing when it has ended.
    void cancel() const;

private:
    QPointer<QObject> m_request;
};

namespace zel {

/// How a request of any method ended. KCloudSvrProxy hands it to a slot whose third parameter it is.
struct CloudEnding
{
    CloudEnd end = CloudEnd::Gone;
    QString detail;
    const void *record = nullptr; ///< of the method's answer class; null without an answer
};

/// Of the service's methods by their names in the interface description. For the templates below.
class ZELPLATFORM_EXPORT CloudRequestData
{
public:
    template <class Request>
    CloudRequestData(const Request &record) : m_type(&typeid(Request)), m_data(&record)
    {
    }
    CloudRequestData(const QStringList &texts) : m_texts(&texts) { }

    /// Null `context`: the answer is not wanted.
    CloudCall send(KCloudSvrProxy *proxy, const char *method, const std::type_info *answer, QObject *context,
        std::function<void(const CloudEnding &)> then) const;

private:
    const std::type_info *m_type = nullptr;
    const void *m_data = nullptr;
    const QStringList *m_texts = nullptr;
};

/// Asks the service, and calls `then` once with what came of it: see CloudEnd. Never inside this call, and
/// never after `context` is gone. `request` is the method's record, or a QStringList for a method that takes
/// one; it is copied. `proxy` may be null. GUI thread. The continuation may do anything, also destroy context
/// or proxy.
///
///     ask<RenameResult>(proxy, "rename", request, this, [this](const CloudReply<RenameResult> &reply) { …
///     });
template <class Answer>
CloudCall ask(KCloudSvrProxy *proxy, const char *method, const CloudRequestData &request, QObject *context,
    std::function<void(const CloudReply<Answer> &)> then)
{
    return request.send(
        proxy, method, &typeid(Answer), context, [then = std::move(then)](const CloudEnding &ending) {
            static const Answer none;
            const Answer &record = ending.record ? *static_cast<const Answer *>(ending.record) : none;
            if (ending.end != CloudEnd::Answered || record.state == 0)
                return then({ending.end, 0, ending.detail, record});
            QString detail = ending.detail;
            if constexpr (requires { record.errorInfo.errString; })
                detail = wire::toQt(record.errorInfo.errString);
            then({CloudEnd::Refused, int(record.state), detail, record});
        });
}

/// Tells the service something whose answer nobody wants.
inline void tell(KCloudSvrProxy *proxy, const char *method, const CloudRequestData &request)
{
    request.send(proxy, method, nullptr, nullptr, {});
}

} // namespace zel

Q_DECLARE_METATYPE(zel::CloudEnding)
