#include "calltable.h"

#include "base/logging.h"
#include "calltimeout.h"
#include "common_types.h"
#include "rpcresponse.h"

using namespace std::chrono_literals;

namespace zel::cloudipc {
namespace {

QString idText(quint64 number)
{
    return QString::number(number);
}

const wire::RecordType *answerOf(const std::string &method)
{
    const wire::MethodType *type = wire::findMethod(method);
    return type ? type->answer : nullptr;
}

} // namespace

CallTable::CallTable(AskGate gate, Send send) : m_gate(std::move(gate)), m_send(std::move(send))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CallTable::onTimeout);
}

// Ids are unique in the process, also over several links.
quint64 CallTable::nextNumber()
{
    static quint64 last = 0;
    if (sequenceOf(++last) == 0) // that is a push's
        ++last;
    return last;
}

int32_t CallTable::sequenceOf(quint64 number)
{
    return int32_t(number & 0x7fffffff);
}

QString CallTable::call(
    const std::string &method, QObject *receiver, const QString &slot, const MakeFrame &makeFrame)
{
    Pending pending;
    pending.number = nextNumber();
    pending.method = method;
    if (receiver && !slot.isEmpty()) {
        pending.receiver = receiver;
        pending.slot = findAnswerSlot(*receiver->metaObject(), slot);
        if (pending.slot.form == AnswerSlot::Form::Ending)
            pending.slot.record = answerOf(method);
    }
    const QString id = idText(pending.number);
    const bool isUnreadable = pending.slot.form == AnswerSlot::Form::Ending && !pending.slot.record;
    QByteArray frame = isUnreadable ? QByteArray() : makeFrame(sequenceOf(pending.number));
    if (frame.isEmpty()) {
        qCWarning(lcPlatform, "cannot write the request %s", method.c_str());
        fail(std::move(pending), CloudEnd::Rejected, QStringLiteral("It cannot be written."));
    } else if (m_gate() == Gate::Closed) {
        fail(std::move(pending), CloudEnd::Gone, QStringLiteral("There is no connection."));
    } else {
        wait(std::move(pending), std::move(frame));
    }
    return id;
}

void CallTable::wait(Pending pending, QByteArray frame)
{
    const int32_t sequence = sequenceOf(pending.number);
    const auto timeout = m_timeout > 0ms ? m_timeout : callTimeout(pending.method);
    pending.deadline = std::chrono::steady_clock::now() + timeout;
    m_deadlines.emplace(pending.deadline, sequence);
    const bool open = m_gate() == Gate::Open;
    if (!open)
        pending.frame = frame;
    m_pending.insert_or_assign(sequence, std::move(pending));
    if (!m_timer.isActive() || m_deadlines.begin()->second == sequence)
        arm();
    if (open)
        m_send(frame);
}

bool CallTable::cancel(const QString &requestId)
{
    const quint64 number = requestId.toULongLong();
    const auto it = m_pending.find(sequenceOf(number));
    if (it == m_pending.end() || it->second.number != number)
        return false;
    fail(take(it), CloudEnd::Cancelled, QStringLiteral("It was cancelled."));
    return true;
}

void CallTable::sendWaiting()
{
    for (auto &[sequence, pending] : m_pending) {
        if (!pending.frame.isEmpty())
            m_send(std::exchange(pending.frame, {}));
    }
}

void CallTable::endAll()
{
    while (!m_pending.empty())
        fail(take(m_pending.begin()), CloudEnd::Gone, QStringLiteral("The connection was lost."));
}

bool CallTable::takeReply(const wire::MessageHead &head, wire::MessageReader &reader)
{
    const auto it = m_pending.find(head.sequence);
    if (it == m_pending.end())
        return true; // too late: timed out or cancelled
    if (it->second.method != head.method)
        return false;
    if (!it->second.receiver || it->second.slot.form == AnswerSlot::Form::None) {
        take(it);
        return true;
    }
    const AnswerSlot slot = it->second.slot;
    if (slot.form == AnswerSlot::Form::Response) {
        vela::VelaIpcResult answer;
        if (!reader.readAnswer(answer))
            return false;
        const Pending pending = take(it);
        const KRpcResponse response = rpcResponse(answer);
        slot.call(pending.receiver, true, idText(pending.number), &response);
        return true;
    }
    const wire::AnyRecord answer(*slot.record);
    if (!reader.readAnswer(answer.base()))
        return false;
    const Pending pending = take(it);
    if (slot.form == AnswerSlot::Form::Ending) {
        const CloudEnding ending{CloudEnd::Answered, {}, answer.object()};
        slot.call(pending.receiver, true, idText(pending.number), &ending);
    } else {
        slot.call(pending.receiver, true, idText(pending.number), answer.object());
    }
    return true;
}

bool CallTable::takeRefusal(const wire::MessageHead &head, wire::MessageReader &reader)
{
    auto refusal = wire::Refusal::InternalError;
    QString text;
    if (!reader.readRefusal(refusal, text))
        return false;
    qCWarning(lcPlatform, "the cloud service refused %s: %s (%d)", head.method.c_str(), qUtf8Printable(text),
        int(refusal));
    const auto it = m_pending.find(head.sequence);
    if (it != m_pending.end())
        fail(take(it), CloudEnd::Rejected, text);
    return true;
}

CallTable::Pending CallTable::take(Table::iterator it)
{
    m_deadlines.erase({it->second.deadline, it->first});
    Pending pending = std::move(it->second);
    m_pending.erase(it);
    if (m_pending.empty())
        m_timer.stop();
    return pending;
}

// Each has an event of its own, so that an event loop inside one slot goes on with the others.
void CallTable::fail(Pending pending, CloudEnd end, const QString &detail)
{
    if (pending.slot.form == AnswerSlot::Form::None)
        return;
    pending.ending = {end, detail, nullptr};
    m_failed.push_back(std::move(pending));
    QMetaObject::invokeMethod(this, &CallTable::callNextFailed, Qt::QueuedConnection);
}

void CallTable::callNextFailed()
{
    const Pending pending = std::move(m_failed.front());
    m_failed.pop_front();
    if (pending.receiver)
        pending.slot.callFailed(pending.receiver, idText(pending.number), pending.ending);
}

void CallTable::arm()
{
    const auto left = m_deadlines.begin()->first - std::chrono::steady_clock::now();
    m_timer.start(std::max(std::chrono::ceil<std::chrono::milliseconds>(left), 0ms));
}

void CallTable::onTimeout()
{
    const auto now = std::chrono::steady_clock::now();
    std::string first;
    int count = 0;
    while (!m_deadlines.empty() && m_deadlines.begin()->first <= now) {
        const auto it = m_pending.find(m_deadlines.begin()->second);
        if (++count == 1)
            first = it->second.method;
        fail(take(it), CloudEnd::TimedOut, QStringLiteral("It took too long."));
    }
    if (count > 0)
        qCWarning(lcPlatform, "the cloud service did not answer %d requests in time, the first %s", count,
            first.c_str());
    if (!m_deadlines.empty())
        arm();
}

} // namespace zel::cloudipc
