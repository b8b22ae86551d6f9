#pragma once

#include "answerslot.h"
#include "cloud/wire/message.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <set>

namespace zel::cloudipc {

/// The requests that wait for their answers; sees to it that each ends once. GUI thread. A timer runs only
/// while a request waits. Answers call their slots at once, every other end on a later turn of the loop.
class CallTable final : public QObject
{
    Q_OBJECT
public:
    enum class Gate { Closed, Waiting, Open }; ///< no connection, one is being made, one is there
    using Send = std::function<void(const QByteArray &frame)>;
    using AskGate = std::function<Gate()>;
    using MakeFrame = std::function<QByteArray(int32_t sequence)>;

    CallTable(AskGate gate, Send send);

    /// Returns the request's id. An empty frame ends it like a failure.
    QString call(
        const std::string &method, QObject *receiver, const QString &slot, const MakeFrame &makeFrame);
    bool cancel(const QString &requestId);
    void sendWaiting(); ///< the connection is there
    void endAll();      ///< there is none, or none any more

    /// False when the message is damaged; its request then waits for the end of the connection. Otherwise the
    /// table may be gone.
    bool takeReply(const wire::MessageHead &head, wire::MessageReader &reader);
    bool takeRefusal(const wire::MessageHead &head, wire::MessageReader &reader);

    void setTimeout(std::chrono::milliseconds timeout) { m_timeout = timeout; } ///< zero: the methods' own
    size_t size() const { return m_pending.size(); }

private:
    using Time = std::chrono::steady_clock::time_point;
    struct Pending
    {
        quint64 number = 0;
        std::string method;
        QPointer<QObject> receiver;
        AnswerSlot slot;
        Time deadline;
        QByteArray frame;   ///< until it is sent
        CloudEnding ending; ///< of one that failed
    };
    using Table = std::map<int32_t, Pending>;

    static quint64 nextNumber();
    static int32_t sequenceOf(quint64 number);
    void wait(Pending pending, QByteArray frame);
    Pending take(Table::iterator it);
    void fail(Pending pending, CloudEnd end, const QString &detail);
    void callNextFailed();
    void arm();
    void onTimeout();

    AskGate m_gate;
    Send m_send;
    std::chrono::milliseconds m_timeout{0};
    Table m_pending; ///< by sequence
    std::set<std::pair<Time, int32_t>> m_deadlines;
    std::deque<Pending> m_failed; ///< whose slots are still to be called
    QTimer m_timer;
};

} // namespace zel::cloudipc
