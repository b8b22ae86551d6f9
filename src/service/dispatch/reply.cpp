#include "service/dispatch/reply.h"

#include "base/logging.h"
#include "cloud/wire/message.h"
#include "common_types.h"

#include <utility>

namespace zel::service {

using wire::ServiceError;

Reply::Reply(const wire::MethodType &method, int32_t sequence, ClientId client, Deliver deliver)
    : m_method(&method), m_sequence(sequence), m_client(client), m_deliver(std::move(deliver))
{
}

Reply::Reply(Reply &&other) noexcept
    : m_method(other.m_method),
      m_sequence(other.m_sequence),
      m_client(other.m_client),
      m_deliver(std::exchange(other.m_deliver, nullptr))
{
}

Reply &Reply::operator=(Reply &&other) noexcept
{
    std::swap(m_method, other.m_method);
    std::swap(m_sequence, other.m_sequence);
    std::swap(m_client, other.m_client);
    std::swap(m_deliver, other.m_deliver);
    return *this;
}

Reply::~Reply()
{
    if (m_deliver)
        fail(ServiceError::Internal, QStringLiteral("The method ended without an answer."));
}

void Reply::send(const apache::thrift::TBase &answer)
{
    const QByteArray frame = wire::replyFrame(m_method->name, m_sequence, answer);
    if (frame.isEmpty())
        fail(ServiceError::TooLarge, QStringLiteral("The answer is larger than a message may be."));
    else
        deliver(frame);
}

void Reply::fail(ServiceError error, const QString &text)
{
    qCInfo(lcService, "%s: %s", m_method->name.data(), wire::errorName(error));
    const wire::AnyRecord answer(*m_method->answer);
    m_method->answer->fail(answer.object(), int32_t(error), wire::errorInfo(error, text));
    deliver(wire::replyFrame(m_method->name, m_sequence, answer.base()));
}

void Reply::deliver(const QByteArray &frame)
{
    Q_ASSERT_X(m_deliver, "Reply", "a request is answered once");
    const Deliver once = std::exchange(m_deliver, nullptr);
    if (once)
        once(frame);
}

} // namespace zel::service
