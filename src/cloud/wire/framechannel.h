#pragma once

#include "base/posix/uniquefd.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>

namespace zel::wire {

/// One end of a connection: frames in, frames out, on a connected stream socket. Thread of its event loop;
/// never blocks. Sends at once what the socket takes and keeps the rest. Nothing wakes it while no bytes come
/// or go.
class FrameChannel final : public QObject
{
    Q_OBJECT
public:
    /// Gets each whole frame (without its length). May send, pause, close or destroy the channel, and run an
    /// event loop once it needs the bytes no longer.
    using FrameHandler = std::function<void(const char *bytes, size_t size)>;

    /// `socket` is a non-blocking one whose other end has been checked already.
    FrameChannel(posix::UniqueFd socket, FrameHandler onFrame, QObject *parent = nullptr);
    ~FrameChannel() override;

    void send(const QByteArray &frame); ///< a whole frame with its length; ignored once closed
    /// Sends what is sent while frames are handled together at their end: for an end that answers many
    /// requests at once and whose handler runs no event loop.
    void setSendingTogether(bool together) { m_sendingTogether = together; }
    qint64 bytesWaiting() const { return m_waitingBytes; }
    /// While paused no frame is handled and little is read; frames read already come after the pause.
    void setPaused(bool paused);
    /// How long a frame that has begun may take to arrive whole before the connection is ended; 30 s.
    void setFrameTimeout(std::chrono::milliseconds timeout) { m_frameTimeout.setInterval(timeout); }
    /// How long the other end may take nothing of what waits for it; without limit unless this is called.
    void setSendTimeout(std::chrono::milliseconds timeout) { m_sendTimeout.setInterval(timeout); }
    /// Ends the connection without a word; closed() does not follow.
    void close();
    bool isOpen() const { return bool(m_socket); }

Q_SIGNALS:
    void closed(const QString &why); ///< once, when the other end or an error ended it; empty: in order
    void drained();                  ///< everything that waited has been sent

private:
    enum class Received { Some, All, Failed };

    void onReadable();
    void onWritable();
    Received receive();
    void makeRoom();
    bool handleFrames();
    void goOnInsideHandler();
    bool holdsFrame() const;
    bool takeFrame(const char **bytes, size_t *size);
    void watchFrame(bool isAnother);
    void waitForRoom();
    bool sendWhole(const QByteArray &frame);
    void flush();
    void dropOutput(size_t sent);
    void giveUpSending();
    void fail(const QString &why);

    posix::UniqueFd m_socket;
    FrameHandler m_onFrame;
    QSocketNotifier m_readable;
    QSocketNotifier m_writable;
    QTimer m_frameTimeout;
    QTimer m_sendTimeout;
    QByteArray m_input;
    int m_inputStart = 0; ///< of the first byte that is not handled yet
    int m_inputEnd = 0;
    std::deque<QByteArray> m_output;
    int m_outputOffset = 0; ///< sent bytes of the first one
    qint64 m_waitingBytes = 0;
    bool m_paused = false;
    bool m_sendingTogether = false;
    bool m_handling = false;
    bool m_goOnPosted = false;
};

} // namespace zel::wire
