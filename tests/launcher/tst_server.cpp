#include "base/posix/unixsocket.h"
#include "launcher/forward.h"
#include "launcher/hostmessages.h"
#include "launcher/instanceserver.h"
#include "launcher/protocol.h"

#include <condition_variable>
#include <future>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

using namespace zel::launcher;
using namespace zel::posix;
using namespace std::chrono_literals;

class TestServer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath("socket"_s).toStdString();
        m_listener = listenUnix(m_path);
        QVERIFY(m_listener);
        m_exitSignal.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
        m_box = std::make_unique<Box>();
        m_messages = std::make_unique<HostMessages>();
    }

    void cleanup()
    {
        m_server.reset();
        m_messages.reset();
        m_box.reset(); // a handler lives as long as its host may call it
    }

    void replies_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("channel", "text", "reply");
        const QString own = "_TRANSMISSION_"_s;
        row("command line", own, "zelbox_active_window?=/a=b", "handled");
        row("long", own, QString(2000000, QChar(0x6587)), "handled");
        row("reply without its zero", own, "no zero", "handled");
        row("another handler's channel", "_OTHER_", "x", "other");
        row("unknown channel", "_UNKNOWN_", "x", "error");
        row("channel in another case", own.toLower(), "x", "error");
    }
    void replies()
    {
        const auto [channel, text] = zeltest::row<QString, QString>();
        serve();
        handle(L"_TRANSMISSION_");
        handle(L"_OTHER_");
        const Forwarding result = forward(text.toStdU16String(), channel.toStdU16String());
        QCOMPARE(result.result, Forwarding::Result::Answered);
        QTEST(QString::fromStdU16String(result.reply), "reply");
        const bool handled = result.reply != errorReply;
        QCOMPARE(m_box->waitForTexts(handled ? 1 : 0), handled ? QStringList(text) : QStringList());
    }

    void messagesWaitForTheHandler()
    {
        serve();
        const UniqueFd first = send(encodeFrame({transmissionChannel, u"1"}).value());
        QVERIFY(looksAtAll());
        const UniqueFd second = send(encodeFrame({transmissionChannel, u"2"}).value());
        QVERIFY(looksAtAll());
        handle(L"_TRANSMISSION_");
        QCOMPARE(m_box->waitForTexts(2), zeltest::words({"1", "2"}));
    }

    // A box that is leaving hears a message but does not answer it: its sender starts over.
    void unansweredMessageEndsWithTheServer()
    {
        serve();
        handle(L"_TRANSMISSION_");
        std::future<Forwarding> sender =
            std::async(std::launch::async, [this] { return forward(u"no reply"); });
        QCOMPARE(m_box->waitForTexts(1).size(), 1);
        m_server->stop();
        QCOMPARE(sender.get().result, Forwarding::Result::Gone);
    }

    void removedHandlerIsNotCalled()
    {
        serve();
        handle(L"_TRANSMISSION_");
        QVERIFY(isHandled(u"1"));
        m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), nullptr);
        const UniqueFd waiting = send(encodeFrame({transmissionChannel, u"2"}).value());
        QVERIFY(looksAtAll());
        QCOMPARE(m_box->waitForTexts(1).size(), 1);
        m_server->stop();
        QVERIFY(isClosed(waiting));
    }

    void senderThatGaveUpIsForgotten()
    {
        serve();
        {
            const UniqueFd gone = send(encodeFrame({transmissionChannel, u"old"}).value());
            QVERIFY(looksAtAll());
        }
        QVERIFY(looksAtAll());
        handle(L"_TRANSMISSION_");
        QVERIFY(isHandled(u"new"));
        QCOMPARE(m_box->waitForTexts(1), zeltest::words({"new"}));
    }

    void badSenders_data()
    {
        const auto row = zeltest::table<QByteArray>("bytes");
        const std::string frame = encodeFrame({transmissionChannel, u"text"}).value();
        const QByteArray whole = QByteArray::fromStdString(frame);
        row("silence", {});
        row("half a frame", whole.left(whole.size() - 1));
        row("garbage", QByteArray(100000, 'x'));
        row("two frames", whole + whole);
    }
    void badSenders()
    {
        QFETCH(QByteArray, bytes);
        serve({300ms, 64});
        handle(L"_TRANSMISSION_");
        const UniqueFd bad = send(bytes.toStdString());
        QVERIFY2(isHandled(u"good"), "others are served meanwhile");
        QVERIFY2(isClosed(bad), "the bad one is closed");
        QVERIFY2(isHandled(u"good"), "others are served afterwards");
        QCOMPARE(m_box->waitForTexts(2), zeltest::words({"good", "good"}));
    }

    void moreSendersThanConnections()
    {
        serve({200ms, 2});
        handle(L"_TRANSMISSION_");
        std::vector<UniqueFd> silent;
        for (int i = 0; i < 5; ++i)
            silent.push_back(send({}));
        QVERIFY(isHandled(u"late"));
    }

private:
    // Notes what it is given and answers by the text: "no reply" not at all, "no zero" without a
    // terminating zero.
    class Box
    {
    public:
        static void handle(
            void *context, const wchar_t *channel, void *, HostInputData *input, HostOutputData *output)
        {
            auto *box = static_cast<Box *>(context);
            const std::u16string text = input->text();
            {
                const std::lock_guard lock(box->m_mutex);
                box->m_texts.append(QString::fromStdU16String(text));
            }
            box->m_changed.notify_all();
            const std::u16string reply = std::wstring(channel) == L"_TRANSMISSION_" ? u"handled" : u"other";
            if (text == u"no reply")
                return;
            output->setSize((reply.size() + (text == u"no zero" ? 0 : 1)) * sizeof(char16_t));
            memcpy(output->buffer(), reply.data(), reply.size() * sizeof(char16_t));
        }
        QStringList waitForTexts(int count)
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait_for(lock, 20s, [&] { return m_texts.size() >= count; });
            return m_texts;
        }

    private:
        std::mutex m_mutex;
        std::condition_variable m_changed;
        QStringList m_texts;
    };

    void serve(InstanceServer::Limits limits = {})
    {
        m_server =
            std::make_unique<InstanceServer>(m_listener.get(), *m_messages, m_exitSignal.get(), limits);
        QVERIFY(m_server->start());
    }
    void handle(const wchar_t *channel) { m_messages->registerHandler(channel, m_box.get(), Box::handle); }
    Forwarding forward(std::u16string text, std::u16string channel = transmissionChannel)
    {
        return forwardMessage(m_path, {std::move(channel), std::move(text)}, deadlineIn(20s));
    }

    bool isHandled(std::u16string text) { return forward(std::move(text)).reply == handledReply; }
    /// An unknown channel is refused only after everything that came earlier has been looked at; and a
    /// message that waits does not hold up others.
    bool looksAtAll() { return forward(u"x", u"_UNKNOWN_").reply == errorReply; }
    UniqueFd send(const std::string &bytes)
    {
        UniqueFd fd = connectUnixUntil(m_path, deadlineIn(5s));
        ::send(fd.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        return fd;
    }

    bool isClosed(const UniqueFd &fd)
    {
        pollfd entry = {fd.get(), POLLIN, 0};
        char byte = 0;
        return ::poll(&entry, 1, 20000) == 1 && ::recv(fd.get(), &byte, 1, 0) <= 0;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::string m_path;
    UniqueFd m_listener;
    UniqueFd m_exitSignal;
    std::unique_ptr<Box> m_box;
    std::unique_ptr<HostMessages> m_messages;
    std::unique_ptr<InstanceServer> m_server;
};

QTEST_APPLESS_MAIN(TestServer)
#include "tst_server.moc"
