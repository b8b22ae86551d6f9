#pragma once

#include "base/posix/unixsocket.h"
#include "cloud/wire/framechannel.h"
#include "cloud/wire/limits.h"
#include "cloud/wire/message.h"
#include "common_types.h"

#include <thrift/TBase.h>

/// A client of the cloud service for tests. Calls run the event loop until they are answered, so that the
/// service may live in the same thread or in a process of its own.
class WireClient : public QObject
{
public:
    static constexpr int Patience = 30000; // ms

    explicit WireClient(const std::string &socketPath)
    {
        zel::posix::UniqueFd socket = zel::posix::connectUnixNow(socketPath);
        if (!socket)
            return;
        m_channel = std::make_unique<zel::wire::FrameChannel>(
            std::move(socket), [this](const char *bytes, size_t size) { onFrame(bytes, size); });
        connect(m_channel.get(), &zel::wire::FrameChannel::closed, this, [this] { m_closed = true; });
    }

    bool isOpen() const { return m_channel && !m_closed; }
    bool waitForClosed(int patience = Patience) const
    {
        return QTest::qWaitFor([this] { return m_closed; }, patience);
    }
    zel::wire::FrameChannel &channel() { return *m_channel; }

    /// The handshake; false when the service does not welcome us.
    bool greet(int version = zel::wire::ProtocolVersion)
    {
        const auto answer = call<zel::vela::GetVersionResult>(
            "getVersion", filled(&zel::vela::GetVersionArg::protocolVersion, version));
        return answer && answer->state == 0;
    }

    /// Nothing when the answer does not come, does not parse, or is a refusal; error() says which.
    template <class Result>
    std::optional<Result> call(std::string_view method, const apache::thrift::TBase &request)
    {
        return answerTo<Result>(send(method, request));
    }
    template <class Result> std::optional<Result> call(std::string_view method, const QStringList &request)
    {
        const int32_t number = ++m_lastNumber;
        m_channel->send(zel::wire::listCallFrame(method, number, request));
        return answerTo<Result>(number);
    }
    QString error() const { return m_error; }

    /// Sends a request without waiting; its number.
    int32_t send(std::string_view method, const apache::thrift::TBase &request)
    {
        const int32_t number = ++m_lastNumber;
        m_channel->send(zel::wire::callFrame(method, number, request));
        return number;
    }
    template <class Result> std::optional<Result> answerTo(int32_t number)
    {
        const auto bytes = waitForAnswer(number);
        Result result;
        if (!bytes || !read(*bytes, result))
            return {};
        return result;
    }
    /// The whole message that answers a request.
    std::optional<QByteArray> waitForAnswer(int32_t number)
    {
        m_error = "no answer"_s;
        if (!QTest::qWaitFor([this, number] { return m_answers.count(number) || m_closed; }, Patience))
            return {};
        const auto it = m_answers.find(number);
        if (it == m_answers.end())
            return {};
        m_error.clear();
        const QByteArray bytes = it->second;
        m_answers.erase(it);
        return bytes;
    }
    size_t answersWaiting() const { return m_answers.size(); }

    /// The next push of `method` that was not taken yet.
    template <class Record>
    std::optional<Record> waitForPush(std::string_view method, int patience = Patience)
    {
        auto it = m_pushes.end();
        const bool came = QTest::qWaitFor(
            [&] {
                it = std::find_if(
                    m_pushes.begin(), m_pushes.end(), [&](auto &push) { return push.first == method; });
                return it != m_pushes.end() || m_closed;
            },
            patience);
        if (!came || it == m_pushes.end())
            return {};
        zel::wire::MessageReader message(it->second.constData(), size_t(it->second.size()));
        zel::wire::MessageHead head;
        Record record;
        const bool parsed = message.readHead(head) && message.readRequest(record);
        m_pushes.erase(it);
        return parsed ? std::optional(record) : std::nullopt;
    }

private:
    void onFrame(const char *bytes, size_t size)
    {
        const QByteArray copy(bytes, int(size));
        zel::wire::MessageReader message(copy.constData(), size);
        zel::wire::MessageHead head;
        if (!message.readHead(head))
            qFatal("the service sent a damaged message");
        if (head.kind == zel::wire::MessageKind::Push)
            m_pushes.emplace_back(head.method, copy);
        else
            m_answers[head.sequence] = copy;
    }

    template <class Result> bool read(const QByteArray &bytes, Result &result)
    {
        zel::wire::MessageReader message(bytes.constData(), size_t(bytes.size()));
        zel::wire::MessageHead head;
        zel::wire::Refusal refusal = zel::wire::Refusal::InternalError;
        if (!message.readHead(head))
            return false;
        if (head.kind == zel::wire::MessageKind::Exception) {
            message.readRefusal(refusal, m_error);
            return false;
        }
        const bool parsed = message.readAnswer(result);
        m_error = message.error();
        return parsed;
    }

    std::unique_ptr<zel::wire::FrameChannel> m_channel;
    std::map<int32_t, QByteArray> m_answers;
    std::vector<std::pair<std::string, QByteArray>> m_pushes;
    QString m_error;
    int32_t m_lastNumber = 0;
    bool m_closed = false;
};
