#pragma once

#include "cloud/wire/boundedreader.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <string>
#include <string_view>

namespace apache::thrift {
class TBase;
}

/// Messages of the link: Thrift's framed transport and strict binary protocol, as
/// https://github.com/apache/thrift/tree/master/doc/specs lays them down. A request is the method's arguments
/// (one field, number 1), an answer its result (one field, number 0). Any thread.
namespace zel::wire {

enum class MessageKind : int8_t { Call = 1, Reply = 2, Exception = 3, Push = 4 };

struct MessageHead
{
    std::string method;
    MessageKind kind = MessageKind::Call;
    int32_t sequence = 0; ///< the request's number; 0 for a push
};

/// Failures that stand outside the records; the numbers are those of Thrift's TApplicationException.
enum class Refusal : int32_t {
    UnknownMethod = 1,
    InvalidMessage = 2,
    InternalError = 6,
    ProtocolError = 7,
};

/// Each gives a whole frame, length first; empty when the record breaks a limit of
/// limits.h.
QByteArray callFrame(std::string_view method, int32_t sequence, const apache::thrift::TBase &request);
QByteArray listCallFrame(std::string_view method, int32_t sequence, const QStringList &request);
QByteArray replyFrame(std::string_view method, int32_t sequence, const apache::thrift::TBase &answer);
QByteArray refusalFrame(std::string_view method, int32_t sequence, Refusal refusal, const QString &text);
QByteArray pushFrame(std::string_view method, const apache::thrift::TBase &record);

/// Reads one message: its head first, then what the head says follows. Bytes (without the frame's length) are
/// not copied. Each step is false when the message is damaged or breaks a limit, and error() says why; never
/// throws.
class MessageReader
{
public:
    MessageReader(const char *bytes, size_t size) : m_reader(bytes, size) { }

    bool readHead(MessageHead &head);
    bool readRequest(apache::thrift::TBase &record); ///< of a call or push
    bool readRequestList(QStringList &texts);
    bool readAnswer(apache::thrift::TBase &record);
    bool readRefusal(Refusal &refusal, QString &text);
    QString error() const { return m_error; }

private:
    template <class Step> bool guarded(Step step);
    template <class Take> void readFields(Take take);
    template <class Take>
    bool readOnlyField(int16_t wantedId, apache::thrift::protocol::TType wantedType, Take take);

    BoundedReader m_reader;
    QString m_error;
};

} // namespace zel::wire
