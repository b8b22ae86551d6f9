#pragma once

#include "cloud/wire/registry.h"
#include "cloud/wire/serviceerror.h"

#include <QByteArray>
#include <QString>
#include <functional>

namespace zel::service {

/// One connection of a client; never used again for another.
enum class ClientId : quint64 { None = 0 };

/// The answer that one request is owed. Sent exactly once: a reply that is dropped unsent answers with an
/// internal error. Thread of the service's main loop; work elsewhere hands its outcome over first.
class Reply
{
public:
    /// Gets the frame of the answer; does nothing when the client has gone meanwhile.
    using Deliver = std::function<void(const QByteArray &frame)>;

    Reply(const wire::MethodType &method, int32_t sequence, ClientId client, Deliver deliver);
    Reply(Reply &&other) noexcept;
    Reply &operator=(Reply &&other) noexcept;
    ~Reply();

    const wire::MethodType &method() const { return *m_method; }
    ClientId client() const { return m_client; }    ///< who asked
    void send(const apache::thrift::TBase &answer); ///< a record of method().answer
    void fail(wire::ServiceError error, const QString &text);

private:
    void deliver(const QByteArray &frame);

    const wire::MethodType *m_method;
    int32_t m_sequence;
    ClientId m_client;
    Deliver m_deliver; ///< empty once sent
};

/// A reply of which the answer's class is known.
template <class Record> class Answer
{
public:
    explicit Answer(Reply reply) : m_reply(std::move(reply)) { }
    ClientId client() const { return m_reply.client(); }
    void send(const Record &record) { m_reply.send(record); }
    void fail(wire::ServiceError error, const QString &text) { m_reply.fail(error, text); }

private:
    Reply m_reply;
};

} // namespace zel::service
