// Frames over a real socket: in pieces, in heaps, damaged, and with ends that come and go.
#include "cloud/wire/framechannel.h"
#include "cloud/wire/limits.h"

#include <QEventLoop>
#include <QSignalSpy>
#include <QtEndian>
#include <QtTest>
#include <fcntl.h>
#include <sys/socket.h>

using namespace zel::wire;
using zel::posix::UniqueFd;
using namespace std::chrono_literals;

namespace {

QByteArray frameOf(const QByteArray &body)
{
    QByteArray frame(4, '\0');
    qToBigEndian(quint32(body.size()), frame.data());
    return frame + body;
}

QByteArray lengthOnly(quint32 length)
{
    return frameOf({}).replace(
        0, 4, QByteArray::fromHex(QByteArray::number(length, 16).rightJustified(8, '0')));
}

} // namespace

class TestFrameChannel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void framesInAnyPieces_data();
    void framesInAnyPieces();
    void endings_data();
    void endings();
    void silenceInsideAFrame();
    void drippingFrame();
    void readerThatSleeps();
    void pauseHoldsFramesBack();
    void slowReaderGetsEverything();
    void otherEndGoesWhileSending();
    void lastWordsAreHeard();
    void handlerMayDoAnything_data();
    void handlerMayDoAnything();

private:
    void write(const QByteArray &bytes)
    {
        QCOMPARE(::send(m_other.get(), bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL),
            ssize_t(bytes.size()));
    }

    UniqueFd m_other; ///< blocking
    std::unique_ptr<FrameChannel> m_channel;
    std::function<void(const QByteArray &)> m_handler;
    QVector<QByteArray> m_frames;
};

void TestFrameChannel::init()
{
    int ends[2];
    QCOMPARE(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    m_other.reset(ends[0]);
    ::fcntl(ends[1], F_SETFL, O_NONBLOCK);
    m_frames.clear();
    m_handler = nullptr;
    m_channel = std::make_unique<FrameChannel>(UniqueFd(ends[1]), [this](const char *bytes, size_t size) {
        m_frames.append(QByteArray(bytes, int(size)));
        if (m_handler)
            m_handler(m_frames.constLast());
    });
}

void TestFrameChannel::cleanup()
{
    m_channel.reset();
    m_other.reset();
}

void TestFrameChannel::framesInAnyPieces_data()
{
    QTest::addColumn<int>("piece");
    QTest::newRow("byte by byte") << 1;
    QTest::newRow("across lengths") << 7;
    QTest::newRow("all at once") << 1000000;
}

void TestFrameChannel::framesInAnyPieces()
{
    QFETCH(int, piece);
    QVector<QByteArray> expected;
    QByteArray stream;
    for (int size : {0, 1, 3, 4, 5, 100, 0, 3000}) {
        expected.append(QByteArray(size, char('a' + size % 26)));
        stream += frameOf(expected.constLast());
    }
    for (int at = 0; at < stream.size(); at += piece) {
        write(stream.mid(at, piece));
        QCoreApplication::sendPostedEvents();
        if (at % 97 == 0)
            QTest::qWait(0);
    }
    QTRY_COMPARE(m_frames, expected);
    QVERIFY(m_channel->isOpen());
}

void TestFrameChannel::endings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("why");
    QTest::newRow("in order") << frameOf("x") << QString();
    QTest::newRow("inside a length") << QByteArray("ab")
                                     << QStringLiteral("the connection ended inside a frame");
    QTest::newRow("inside a frame") << frameOf("abcdef").left(6)
                                    << QStringLiteral("the connection ended inside a frame");
    QTest::newRow("too large") << lengthOnly(LargestFrame + 1) << QStringLiteral("a frame of 67108865 bytes");
    QTest::newRow("much too large") << lengthOnly(0xffffffff)
                                    << QStringLiteral("a frame of 4294967295 bytes");
}

void TestFrameChannel::endings()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, why);
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    write(bytes);
    m_other.reset();
    QVERIFY(closed.wait());
    QCOMPARE(closed.constFirst().constFirst().toString(), why);
    QVERIFY(!m_channel->isOpen());
    m_channel->send(frameOf("nobody hears it"));
    QCOMPARE(closed.size(), 1);
}

void TestFrameChannel::silenceInsideAFrame()
{
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    m_channel->setFrameTimeout(100ms);
    write(frameOf("whole"));
    QVERIFY2(!closed.wait(300), "silence between frames is in order");
    write(frameOf("half").left(6));
    QVERIFY(closed.wait());
    QCOMPARE(closed.constFirst().constFirst().toString(), QStringLiteral("half a frame, then silence"));
}

void TestFrameChannel::drippingFrame()
{
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    m_channel->setFrameTimeout(200ms);
    const QByteArray frame = frameOf(QByteArray(1000, 'x'));
    for (int at = 0; at < frame.size() && closed.isEmpty(); ++at) {
        write(frame.mid(at, 1));
        closed.wait(20);
    }
    QCOMPARE(closed.size(), 1);
    QCOMPARE(m_frames.size(), 0);
}

void TestFrameChannel::readerThatSleeps()
{
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    m_channel->setSendTimeout(100ms);
    m_channel->send(frameOf("small"));
    QVERIFY2(!closed.wait(300), "nothing waits");
    m_channel->send(frameOf(QByteArray(1000000, 'x')));
    QVERIFY(closed.wait());
    QCOMPARE(closed.constFirst().constFirst().toString(), QStringLiteral("the other end does not read"));
}

void TestFrameChannel::pauseHoldsFramesBack()
{
    m_handler = [this](const QByteArray &frame) { m_channel->setPaused(frame == "stop"); };
    write(frameOf("first") + frameOf("stop") + frameOf("later"));
    QTRY_COMPARE(m_frames.size(), 2);
    write(frameOf("last"));
    QTest::qWait(50);
    QCOMPARE(m_frames.size(), 2);
    m_channel->setPaused(false);
    QCOMPARE(m_frames.size(), 2); // not inside the call
    QTRY_COMPARE(m_frames.size(), 4);
    QCOMPARE(m_frames.constLast(), QByteArray("last"));
}

void TestFrameChannel::slowReaderGetsEverything()
{
    QSignalSpy drained(m_channel.get(), &FrameChannel::drained);
    QByteArray sent;
    for (int i = 0; i < 200; ++i) {
        const QByteArray frame = frameOf(QByteArray(20000, char(i)));
        m_channel->send(frame);
        sent += frame;
    }
    QVERIFY(m_channel->bytesWaiting() > 0);
    QByteArray received;
    QByteArray buffer(50000, '\0');
    ::fcntl(m_other.get(), F_SETFL, O_NONBLOCK);
    while (received.size() < sent.size()) {
        const ssize_t got = ::recv(m_other.get(), buffer.data(), size_t(buffer.size()), 0);
        if (got > 0)
            received += buffer.left(int(got));
        else
            QTest::qWait(0);
    }
    QVERIFY(received == sent);
    QTRY_COMPARE(drained.size(), 1);
    QCOMPARE(m_channel->bytesWaiting(), qint64(0));
}

void TestFrameChannel::otherEndGoesWhileSending()
{
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    m_other.reset();
    m_channel->send(frameOf(QByteArray(1000000, 'x')));
    QCOMPARE(closed.size(), 0); // never inside send()
    QVERIFY(closed.wait());
}

void TestFrameChannel::lastWordsAreHeard()
{
    QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
    write(frameOf("last word"));
    m_other.reset();
    m_channel->send(frameOf("x"));
    QVERIFY(closed.wait());
    QCOMPARE(m_frames, QVector<QByteArray>{"last word"});
}

void TestFrameChannel::handlerMayDoAnything_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("handled");
    QTest::newRow("destroy") << "destroy" << 1;
    QTest::newRow("close") << "close" << 1;
    QTest::newRow("run an event loop") << "loop" << 3;
}

void TestFrameChannel::handlerMayDoAnything()
{
    QFETCH(QString, what);
    QFETCH(int, handled);
    m_handler = [&](const QByteArray &frame) {
        if (frame != "go")
            return;
        if (what == QLatin1String("destroy"))
            m_channel.reset();
        else if (what == QLatin1String("close"))
            m_channel->close();
        else {
            write(frameOf(QByteArray(200000, 'y'))); // moves the buffer
            QTRY_COMPARE(m_frames.size(), 3);
        }
    };
    write(frameOf("go") + frameOf("next"));
    QTRY_COMPARE(m_frames.size(), handled);
    QTest::qWait(20);
    QCOMPARE(m_frames.size(), handled);
}

QTEST_GUILESS_MAIN(TestFrameChannel)
#include "tst_framechannel.moc"
