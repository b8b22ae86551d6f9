// Frames over a real socket: in pieces, in heaps, damaged, and with ends that come and go.
#include "cloud/wire/framechannel.h"
#include "cloud/wire/limits.h"

#include <sys/socket.h>

using namespace zel::wire;
using zel::posix::UniqueFd;
using namespace std::chrono_literals;

class TestFrameChannel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
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

    void cleanup()
    {
        m_channel.reset();
        m_other.reset();
    }

    void framesInAnyPieces_data()
    {
        zeltest::rows<int>("piece", {{"byte by byte", 1}, {"across lengths", 7}, {"all at once", 1000000}});
    }
    void framesInAnyPieces()
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

    void endings_data()
    {
        const auto row = zeltest::table<QByteArray, QString>("bytes", "why");
        row("in order", frameOf("x"), {});
        row("inside a length", "ab", "the connection ended inside a frame");
        row("inside a frame", frameOf("abcdef").left(6), "the connection ended inside a frame");
        row("too large", lengthOnly(LargestFrame + 1), "a frame of 67108865 bytes");
        row("much too large", lengthOnly(0xffffffff), "a frame of 4294967295 bytes");
    }
    void endings()
    {
        QFETCH(QByteArray, bytes);
        QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
        write(bytes);
        m_other.reset();
        QVERIFY(closed.wait());
        QTEST(closed.constFirst().constFirst().toString(), "why");
        QVERIFY(!m_channel->isOpen());
        m_channel->send(frameOf("nobody hears it"));
        QCOMPARE(closed.size(), 1);
    }

    void silenceInsideAFrame()
    {
        QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
        m_channel->setFrameTimeout(100ms);
        write(frameOf("whole"));
        QVERIFY2(!closed.wait(300), "silence between frames is in order");
        write(frameOf("half").left(6));
        QVERIFY(closed.wait());
        QCOMPARE(closed.constFirst().constFirst().toString(), "half a frame, then silence"_s);
    }

    void drippingFrame()
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

    void readerThatSleeps()
    {
        QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
        m_channel->setSendTimeout(100ms);
        m_channel->send(frameOf("small"));
        QVERIFY2(!closed.wait(300), "nothing waits");
        m_channel->send(frameOf(QByteArray(1000000, 'x')));
        QVERIFY(closed.wait());
        QCOMPARE(closed.constFirst().constFirst().toString(), "the other end does not read"_s);
    }

    void pauseHoldsFramesBack()
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

    void slowReaderGetsEverything()
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

    void otherEndGoesWhileSending()
    {
        QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
        m_other.reset();
        m_channel->send(frameOf(QByteArray(1000000, 'x')));
        QCOMPARE(closed.size(), 0); // never inside send()
        QVERIFY(closed.wait());
    }

    void lastWordsAreHeard()
    {
        QSignalSpy closed(m_channel.get(), &FrameChannel::closed);
        write(frameOf("last word"));
        m_other.reset();
        m_channel->send(frameOf("x"));
        QVERIFY(closed.wait());
        QCOMPARE(m_frames, QVector<QByteArray>{"last word"});
    }

    void handlerMayDoAnything_data()
    {
        const auto row = zeltest::table<QString, int>("what", "handled");
        row("destroy", "destroy", 1);
        row("close", "close", 1);
        row("run an event loop", "loop", 3);
    }
    void handlerMayDoAnything()
    {
        const auto [what, handled] = zeltest::row<QString, int>();
        m_handler = [&](const QByteArray &frame) {
            if (frame != "go")
                return;
            if (what == "destroy"_s)
                m_channel.reset();
            else if (what == "close"_s)
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

private:
    static QByteArray frameOf(const QByteArray &body)
    {
        QByteArray frame(4, '\0');
        qToBigEndian(quint32(body.size()), frame.data());
        return frame + body;
    }
    static QByteArray lengthOnly(quint32 length)
    {
        return frameOf({}).replace(
            0, 4, QByteArray::fromHex(QByteArray::number(length, 16).rightJustified(8, '0')));
    }

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

QTEST_GUILESS_MAIN(TestFrameChannel)
#include "tst_framechannel.moc"
