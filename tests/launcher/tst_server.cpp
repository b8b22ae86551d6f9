#include "base/posix/unixsocket.h"
#include "launcher/forward.h"
#include "launcher/hostmessages.h"
#include "launcher/instanceserver.h"
#include "launcher/protocol.h"

#include <QTemporaryDir>
#include <QtTest>
#include <condition_variable>
#include <future>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

using namespace zel::launcher;
using namespace zel::posix;
using namespace std::chrono_literals;

namespace {

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
            box->m_texts.push_back(text);
        }
        box->m_changed.notify_all();
        const std::u16string reply = std::wstring(channel) == L"_TRANSMISSION_" ? u"handled" : u"other";
        if (text == u"no reply")
            return;
        output->setSize((reply.size() + (text == u"no zero" ? 0 : 1)) * sizeof(char16_t));
        memcpy(output->buffer(), reply.data(), reply.size() * sizeof(char16_t));
    }
    std::vector<std::u16string> waitForTexts(std::size_t count)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, 20s, [&] { return m_texts.size() >= count; });
        return m_texts;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::u16string> m_texts;
};

} // namespace

class TestServer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void replies_data();
    void replies();
    void messagesWaitForTheHandler();
    void unansweredMessageEndsWithTheServer();
    void removedHandlerIsNotCalled();
    void senderThatGaveUpIsForgotten();
    void badSenders_data();
    void badSenders();
    void moreSendersThanConnections();

private:
    void serve(InstanceServer::Limits limits = {});
    Forwarding forward(std::u16string text, std::u16string channel = transmissionChannel);
    UniqueFd send(const std::string &bytes);
    bool isClosed(const UniqueFd &fd);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::string m_path;
    UniqueFd m_listener;
    UniqueFd m_exitSignal;
    std::unique_ptr<Box> m_box;
    std::unique_ptr<HostMessages> m_messages;
    std::unique_ptr<InstanceServer> m_server;
};

void TestServer::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("socket")).toStdString();
    m_listener = listenUnix(m_path);
    QVERIFY(m_listener);
    m_exitSignal.reset(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    m_box = std::make_unique<Box>();
    m_messages = std::make_unique<HostMessages>();
}

void TestServer::cleanup()
{
    m_server.reset();
    m_messages.reset();
    m_box.reset(); // a handler lives as long as its host may call it
}

void TestServer::serve(InstanceServer::Limits limits)
{
    m_server = std::make_unique<InstanceServer>(m_listener.get(), *m_messages, m_exitSignal.get(), limits);
    QVERIFY(m_server->start());
}

Forwarding TestServer::forward(std::u16string text, std::u16string channel)
{
    return forwardMessage(m_path, {std::move(channel), std::move(text)}, deadlineIn(20s));
}

UniqueFd TestServer::send(const std::string &bytes)
{
    UniqueFd fd = connectUnixUntil(m_path, deadlineIn(5s));
    ::send(fd.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    return fd;
}

bool TestServer::isClosed(const UniqueFd &fd)
{
    pollfd entry = {fd.get(), POLLIN, 0};
    char byte = 0;
    return ::poll(&entry, 1, 20000) == 1 && ::recv(fd.get(), &byte, 1, 0) <= 0;
}

void TestServer::replies_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reply");
    const QString own = QStringLiteral("_TRANSMISSION_");
    const auto row = [](const char *name, const QString &channel, const QString &text, const char *reply) {
        QTest::newRow(name) << channel << text << reply;
    };
    row("command line", own, QStringLiteral("zelbox_active_window?=/a=b"), "handled");
    row("long", own, QString(2000000, QChar(0x6587)), "handled");
    row("reply without its zero", own, QStringLiteral("no zero"), "handled");
    row("another handler's channel", QStringLiteral("_OTHER_"), QStringLiteral("x"), "other");
    row("unknown channel", QStringLiteral("_UNKNOWN_"), QStringLiteral("x"), "error");
    row("channel in another case", own.toLower(), QStringLiteral("x"), "error");
}

void TestServer::replies()
{
    QFETCH(QString, channel);
    QFETCH(QString, text);
    serve();
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    m_messages->registerHandler(L"_OTHER_", m_box.get(), Box::handle);
    const Forwarding result = forward(text.toStdU16String(), channel.toStdU16String());
    QCOMPARE(result.result, Forwarding::Result::Answered);
    QTEST(QString::fromStdU16String(result.reply), "reply");
    const bool handled = result.reply != errorReply;
    QVERIFY(m_box->waitForTexts(handled ? 1 : 0)
        == (handled ? std::vector{text.toStdU16String()} : std::vector<std::u16string>()));
}

void TestServer::messagesWaitForTheHandler()
{
    serve();
    const UniqueFd first = send(encodeFrame({transmissionChannel, u"1"}).value());
    // Answered only after everything that came earlier has been looked at; and one waiting does not hold up
    // others.
    QVERIFY(forward(u"x", u"_UNKNOWN_").reply == errorReply);
    const UniqueFd second = send(encodeFrame({transmissionChannel, u"2"}).value());
    QVERIFY(forward(u"x", u"_UNKNOWN_").reply == errorReply);
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    QVERIFY((m_box->waitForTexts(2) == std::vector<std::u16string>{u"1", u"2"}));
}

// A box that is leaving hears a message but does not answer it: its sender starts over.
void TestServer::unansweredMessageEndsWithTheServer()
{
    serve();
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    std::future<Forwarding> sender = std::async(std::launch::async, [this] { return forward(u"no reply"); });
    QVERIFY(!m_box->waitForTexts(1).empty());
    m_server->stop();
    QCOMPARE(sender.get().result, Forwarding::Result::Gone);
}

void TestServer::removedHandlerIsNotCalled()
{
    serve();
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    QVERIFY(forward(u"1").reply == handledReply);
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), nullptr);
    const UniqueFd waiting = send(encodeFrame({transmissionChannel, u"2"}).value());
    QVERIFY(forward(u"x", u"_UNKNOWN_").reply == errorReply);
    QCOMPARE(m_box->waitForTexts(1).size(), std::size_t(1));
    m_server->stop();
    QVERIFY(isClosed(waiting));
}

void TestServer::senderThatGaveUpIsForgotten()
{
    serve();
    {
        const UniqueFd gone = send(encodeFrame({transmissionChannel, u"old"}).value());
        QVERIFY(forward(u"x", u"_UNKNOWN_").reply == errorReply);
    }
    QVERIFY(forward(u"x", u"_UNKNOWN_").reply == errorReply);
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    QVERIFY(forward(u"new").reply == handledReply);
    QVERIFY((m_box->waitForTexts(1) == std::vector<std::u16string>{u"new"}));
}

void TestServer::badSenders_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const std::string frame = encodeFrame({transmissionChannel, u"text"}).value();
    const QByteArray whole = QByteArray::fromStdString(frame);
    QByteArray oversized = whole.left(8);
    oversized.append("\xFF\xFF\xFF\x7F", 4);
    QTest::newRow("silence") << QByteArray();
    QTest::newRow("half a frame") << whole.left(whole.size() - 1);
    QTest::newRow("garbage") << QByteArray(100000, 'x');
    QTest::newRow("oversized") << oversized;
    QTest::newRow("two frames") << QByteArray(whole + whole);
}

void TestServer::badSenders()
{
    QFETCH(QByteArray, bytes);
    serve({300ms, 64});
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    const UniqueFd bad = send(bytes.toStdString());
    QVERIFY2(forward(u"good").reply == handledReply, "others are served meanwhile");
    QVERIFY2(isClosed(bad), "the bad one is closed");
    QVERIFY2(forward(u"good").reply == handledReply, "others are served afterwards");
    QVERIFY((m_box->waitForTexts(2) == std::vector<std::u16string>{u"good", u"good"}));
}

void TestServer::moreSendersThanConnections()
{
    serve({200ms, 2});
    m_messages->registerHandler(L"_TRANSMISSION_", m_box.get(), Box::handle);
    std::vector<UniqueFd> silent;
    for (int i = 0; i < 5; ++i)
        silent.push_back(send({}));
    QVERIFY(forward(u"late").reply == handledReply);
}

QTEST_APPLESS_MAIN(TestServer)
#include "tst_server.moc"
