// Bytes from the other end of a connection: no frame breaks the reader, whatever record its method names, and
// a record that was read is written and read again as the same.

#include "cloud/wire/framechannel.h"
#include "cloud/wire/message.h"
#include "cloud/wire/registry.h"

#include <QCoreApplication>
#include <cstdlib>
#include <fcntl.h>
#include <sys/socket.h>
#include <thrift/TBase.h>

using namespace zel::wire;

namespace {

void require(bool held)
{
    if (!held)
        std::abort();
}

const RecordType *recordOf(const MessageHead &head)
{
    if (head.kind == MessageKind::Push) {
        const MethodType *push = findPush(head.method);
        return push ? push->request : nullptr;
    }
    const MethodType *method = findMethod(head.method);
    if (!method)
        return nullptr;
    return head.kind == MessageKind::Reply ? method->answer : method->request;
}

bool readRecord(MessageReader &reader, const MessageHead &head, const AnyRecord &record)
{
    return head.kind == MessageKind::Reply ? reader.readAnswer(record.base())
                                           : reader.readRequest(record.base());
}

QByteArray framed(const MessageHead &head, const AnyRecord &record)
{
    if (head.kind == MessageKind::Reply)
        return replyFrame(head.method, head.sequence, record.base());
    if (head.kind == MessageKind::Push)
        return pushFrame(head.method, record.base());
    return callFrame(head.method, head.sequence, record.base());
}

void checkRecord(MessageReader &reader, const MessageHead &head, const RecordType &type)
{
    const AnyRecord record(type);
    if (!readRecord(reader, head, record))
        return;
    const QByteArray frame = framed(head, record);
    MessageReader again(frame.constData() + 4, size_t(frame.size()) - 4);
    MessageHead headAgain;
    const AnyRecord recordAgain(type);
    require(again.readHead(headAgain) && readRecord(again, headAgain, recordAgain));
    require(framed(headAgain, recordAgain) == frame); // not by ==, for which not-a-number differs from itself
}

void checkMessage(const char *bytes, size_t size)
{
    MessageReader reader(bytes, size);
    MessageHead head;
    if (!reader.readHead(head))
        return;
    if (head.kind == MessageKind::Exception) {
        Refusal refusal = Refusal::InternalError;
        QString text;
        reader.readRefusal(refusal, text);
    } else if (const RecordType *type = recordOf(head)) {
        checkRecord(reader, head, *type);
    } else {
        QStringList texts;
        reader.readRequestList(texts);
    }
}

// The same bytes as a stream, in two pieces, with the connection ending after them.
void checkStream(const char *bytes, size_t size)
{
    int ends[2];
    require(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) == 0);
    zel::posix::UniqueFd other(ends[0]);
    FrameChannel channel(zel::posix::UniqueFd(ends[1]), checkMessage);
    const size_t middle = size / 2;
    if (middle > 0)
        require(::send(other.get(), bytes, middle, MSG_NOSIGNAL) == ssize_t(middle));
    QCoreApplication::processEvents();
    if (channel.isOpen() && size > middle)
        ::send(other.get(), bytes + middle, size - middle, MSG_NOSIGNAL);
    other.reset();
    while (channel.isOpen())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 0;
    static QCoreApplication application(argc, nullptr);
    const char *bytes = reinterpret_cast<const char *>(data);
    if (size > 4)
        checkMessage(bytes + 4, size - 4);
    if (size < 65536 && size % 8 == 0)
        checkStream(bytes, size);
    return 0;
}
