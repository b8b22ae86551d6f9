#pragma once

#include "base/posix/unixsocket.h"
#include "cloud/wire/framechannel.h"
#include "cloud/wire/limits.h"
#include "cloud/wire/message.h"
#include "cloud/wire/serviceerror.h"
#include "common_types.h"

/// The service's end of the link inside a test: takes the box's connections and does what the test says.
class FakeService final : public QObject
{
public:
    using Head = zel::wire::MessageHead;
    using Reader = zel::wire::MessageReader;
    enum class Hello { Accept, OtherVersion, Full, Unknown, Garbage, Push, Silence };

    /// Listens where a box with this private runtime folder looks.
    explicit FakeService(const QString &runtimeFolder)
        : m_listener(listenIn(runtimeFolder)), m_incoming(m_listener.get(), QSocketNotifier::Read)
    {
        connect(&m_incoming, &QSocketNotifier::activated, this, [this] { accept(); });
    }

    Hello hello = Hello::Accept;
    std::map<std::string, std::string> login; ///< what getLoginInfo answers
    /// Answers everything but getVersion and getLoginInfo; without it nothing is answered.
    std::function<void(const Head &, Reader &)> serve;
    std::function<void()> onLogin; ///< in place of the answer to getLoginInfo

    int connections = 0;
    zel::vela::GetVersionArg client; ///< as it introduced itself last
    QStringList methods;             ///< of all requests, in order
    Head lastCall;

    void send(const QByteArray &bytes)
    {
        if (m_channel)
            m_channel->send(bytes);
    }
    void reply(const Head &head, const apache::thrift::TBase &answer)
    {
        send(zel::wire::replyFrame(head.method, head.sequence, answer));
    }
    void answerAll() ///< from now on, as envelopes
    {
        serve = [this](const Head &head, Reader &) { answer(head); };
    }
    void answer(const Head &head, int state = 0) ///< to an envelope
    {
        reply(head, filled(&zel::vela::VelaIpcResult::state, state));
    }
    void push(const char *method, const apache::thrift::TBase &record)
    {
        send(zel::wire::pushFrame(method, record));
    }
    void replyLogin() { reply(m_loginCall, filled(&zel::vela::VelaIpcResult::resultMap, login)); }
    void acceptNow()
    {
        hello = Hello::Accept;
        reply(m_helloCall, filled(&zel::vela::GetVersionResult::protocolVersion, zel::wire::ProtocolVersion));
    }
    void hangUp() { m_channel.reset(); }
    void hangUpSoon() ///< once it may, from inside `serve`
    {
        QMetaObject::invokeMethod(
            this, [this] { hangUp(); }, Qt::QueuedConnection);
    }

private:
    static zel::posix::UniqueFd listenIn(const QString &runtimeFolder)
    {
        QDir(runtimeFolder).mkdir("zelbox"_s);
        return zel::posix::listenUnix(QFile::encodeName(runtimeFolder).toStdString() + "/zelbox/cloud.sock");
    }

    void accept()
    {
        zel::posix::UniqueFd fd = zel::posix::acceptUnix(m_listener.get());
        if (!fd)
            return;
        ++connections;
        m_channel = std::make_unique<zel::wire::FrameChannel>(
            std::move(fd), [this](const char *bytes, size_t size) { onFrame(bytes, size); });
    }

    void onFrame(const char *bytes, size_t size)
    {
        Head head;
        Reader reader(bytes, size);
        if (!reader.readHead(head))
            qFatal("the box sent a damaged frame: %s", qUtf8Printable(reader.error()));
        methods.append(QString::fromStdString(head.method));
        if (head.method == "getVersion") {
            m_helloCall = head;
            reader.readRequest(client);
            return answerHello();
        }
        if (head.method == "getLoginInfo") {
            m_loginCall = head;
            return onLogin ? onLogin() : replyLogin();
        }
        lastCall = head;
        if (serve)
            serve(head, reader);
    }

    void answerHello()
    {
        using namespace zel;
        vela::GetVersionResult answer;
        switch (hello) {
        case Hello::Accept:
            return acceptNow();
        case Hello::OtherVersion:
            answer.state = int32_t(wire::ServiceError::VersionMismatch);
            answer.protocolVersion = 77;
            return reply(m_helloCall, answer);
        case Hello::Full:
            answer.state = int32_t(wire::ServiceError::Denied);
            answer.errorInfo = wire::errorInfo(wire::ServiceError::Denied, "too many clients"_s);
            return reply(m_helloCall, answer);
        case Hello::Unknown:
            return send(wire::refusalFrame(
                "getVersion", m_helloCall.sequence, wire::Refusal::UnknownMethod, "never heard of it"_s));
        case Hello::Garbage:
            return send(QByteArray("\0\0\0\7garbage", 11));
        case Hello::Push:
            return send(wire::pushFrame("notifyAction", answer));
        case Hello::Silence:
            return;
        }
    }

    zel::posix::UniqueFd m_listener;
    QSocketNotifier m_incoming;
    std::unique_ptr<zel::wire::FrameChannel> m_channel;
    Head m_helloCall;
    Head m_loginCall;
};
