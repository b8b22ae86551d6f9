#include "cloud/wire/message.h"

#include "cloud/wire/limits.h"

#include <thrift/TApplicationException.h>
#include <thrift/TBase.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

using namespace apache::thrift;
using namespace apache::thrift::protocol;
using apache::thrift::transport::TMemoryBuffer;

namespace zel::wire {
namespace {

using Writer = TBinaryProtocolT<TMemoryBuffer>;

constexpr int16_t RequestField = 1;
constexpr int16_t AnswerField = 0;
constexpr int16_t RefusalTextField = 1; // as in TApplicationException
constexpr int16_t RefusalNumberField = 2;
constexpr uint32_t KeptBuffer = 1u << 20; // a larger one is given back after use

// What breaks a limit would cost the other end the whole connection, so it is not sent. A small message
// cannot.
bool keepsLimits(const uint8_t *message, uint32_t size)
{
    if (size <= KeptBuffer)
        return true;
    BoundedReader reader(message, size);
    std::string method;
    TMessageType type = T_CALL;
    int32_t sequence = 0;
    reader.readMessageBegin(method, type, sequence);
    reader.skip_virt(T_STRUCT); // throws
    return true;
}

// One for each thread, because making a buffer costs more than writing a small message.
class FrameWriter
{
public:
    FrameWriter() { renew(); }

    template <class WriteBody>
    QByteArray frame(std::string_view method, TMessageType type, int32_t sequence, WriteBody writeBody)
    {
        if (method.size() > LongestMethodName)
            return {};
        try {
            m_buffer->resetBuffer();
            m_protocol->writeI32(0); // the length, known at the end
            m_protocol->writeMessageBegin(std::string(method), type, sequence);
            writeBody(*m_protocol);
            m_protocol->writeMessageEnd();
            return finished();
        } catch (const std::exception &) { // a text or container that no length could tell, or no memory
            renew();
            return {};
        }
    }

private:
    void renew()
    {
        const auto unlimited = std::make_shared<TConfiguration>(
            std::numeric_limits<int>::max(), std::numeric_limits<int>::max(), int(DeepestNesting));
        m_buffer = std::make_shared<TMemoryBuffer>(unlimited);
        m_protocol = std::make_unique<Writer>(m_buffer);
    }

    QByteArray finished()
    {
        uint8_t *bytes = nullptr;
        uint32_t size = 0;
        m_buffer->getBuffer(&bytes, &size);
        QByteArray frame;
        const uint32_t length = size - sizeof(uint32_t);
        if (length <= LargestFrame && keepsLimits(bytes + sizeof(uint32_t), length)) {
            const uint32_t written = htobe32(length);
            std::memcpy(bytes, &written, sizeof(written));
            frame = QByteArray(reinterpret_cast<const char *>(bytes), int(size));
        }
        if (size > KeptBuffer)
            renew();
        return frame;
    }

    std::shared_ptr<TMemoryBuffer> m_buffer;
    std::unique_ptr<Writer> m_protocol;
};

FrameWriter &writer()
{
    thread_local FrameWriter made;
    return made;
}

// A struct with one field, which is what Thrift makes of a method's arguments and of its result.
template <class WriteValue> auto onlyField(TType type, int16_t id, WriteValue writeValue)
{
    return [=](Writer &out) {
        out.writeFieldBegin("", type, id);
        writeValue(out);
        out.writeFieldStop();
    };
}

auto recordField(int16_t id, const TBase &record)
{
    return onlyField(T_STRUCT, id, [&record](Writer &out) { record.write(&out); });
}

} // namespace

QByteArray callFrame(std::string_view method, int32_t sequence, const TBase &request)
{
    return writer().frame(method, T_CALL, sequence, recordField(RequestField, request));
}

QByteArray listCallFrame(std::string_view method, int32_t sequence, const QStringList &request)
{
    return writer().frame(method, T_CALL, sequence, onlyField(T_LIST, RequestField, [&request](Writer &out) {
        out.writeListBegin(T_STRING, uint32_t(request.size()));
        for (const QString &text : request)
            out.writeString(text.toStdString());
    }));
}

QByteArray replyFrame(std::string_view method, int32_t sequence, const TBase &answer)
{
    return writer().frame(method, T_REPLY, sequence, recordField(AnswerField, answer));
}

QByteArray refusalFrame(std::string_view method, int32_t sequence, Refusal refusal, const QString &text)
{
    return writer().frame(method, T_EXCEPTION, sequence, [&](Writer &out) {
        const TApplicationException exception(
            TApplicationException::TApplicationExceptionType(int32_t(refusal)), text.toStdString());
        exception.write(&out);
    });
}

QByteArray pushFrame(std::string_view method, const TBase &record)
{
    return writer().frame(method, T_ONEWAY, 0, recordField(RequestField, record));
}

template <class Step> bool MessageReader::guarded(Step step)
{
    if (!m_error.isEmpty())
        return false;
    try {
        step();
    } catch (const std::exception &problem) {
        m_error = QString::fromUtf8(problem.what());
        if (m_error.isEmpty())
            m_error = QStringLiteral("damaged message");
    }
    return m_error.isEmpty();
}

bool MessageReader::readHead(MessageHead &head)
{
    return guarded([&] {
        TMessageType type = T_CALL;
        m_reader.readMessageBegin(head.method, type, head.sequence);
        head.kind = MessageKind(type);
    });
}

// Hands over the fields of a struct; what `take` does not want is skipped. Nothing may follow the struct.
template <class Take> void MessageReader::readFields(Take take)
{
    std::string name;
    TType type = T_STOP;
    int16_t id = 0;
    while (m_reader.readFieldBegin(name, type, id), type != T_STOP) {
        if (!take(id, type))
            m_reader.skip_virt(type);
    }
    if (m_reader.bytesLeft() > 0)
        throw TProtocolException(TProtocolException::INVALID_DATA, "bytes after the message");
}

template <class Take> bool MessageReader::readOnlyField(int16_t wantedId, TType wantedType, Take take)
{
    return guarded([&] {
        bool taken = false;
        readFields([&](int16_t id, TType type) {
            if (id != wantedId || type != wantedType || taken)
                return false;
            take();
            return taken = true;
        });
        if (!taken)
            throw TProtocolException(TProtocolException::INVALID_DATA, "the message holds no record");
    });
}

bool MessageReader::readRequest(TBase &record)
{
    return readOnlyField(RequestField, T_STRUCT, [&] { record.read(&m_reader); });
}

bool MessageReader::readAnswer(TBase &record)
{
    return readOnlyField(AnswerField, T_STRUCT, [&] { record.read(&m_reader); });
}

bool MessageReader::readRequestList(QStringList &texts)
{
    return readOnlyField(RequestField, T_LIST, [&] {
        TType element = T_STOP;
        uint32_t size = 0;
        m_reader.readListBegin(element, size);
        if (element != T_STRING && size > 0)
            throw TProtocolException(TProtocolException::INVALID_DATA, "not a list of texts");
        std::string text;
        for (uint32_t i = 0; i < size; ++i) {
            m_reader.readString(text);
            texts.append(QString::fromStdString(text));
        }
    });
}

// Not through the library's class, which keeps the number in an enumeration that may not hold it.
bool MessageReader::readRefusal(Refusal &refusal, QString &text)
{
    return guarded([&] {
        readFields([&](int16_t id, TType type) {
            if (id == RefusalTextField && type == T_STRING) {
                std::string read;
                m_reader.readString(read);
                text = QString::fromStdString(read);
            } else if (id == RefusalNumberField && type == T_I32) {
                int32_t number = 0;
                m_reader.readI32(number);
                refusal = Refusal(number);
            } else {
                return false;
            }
            return true;
        });
    });
}

} // namespace zel::wire
