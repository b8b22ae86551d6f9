#pragma once

#include <thrift/protocol/TVirtualProtocol.h>

#include <cstring>
#include <endian.h>
#include <string>
#include <vector>

namespace zel::wire {

/// Reads Thrift's strict binary protocol from bytes in memory, within the limits of limits.h. Throws
/// TProtocolException for anything that does not parse. Bytes are not copied and must outlive the reader.
///
/// A protocol of our own for two reasons: the library's limits count the entries of one container only, so a
/// small frame could still claim gigabytes; and records are read through a virtual interface, which costs
/// less on top of a bare pointer than on top of a transport.
class BoundedReader final : public apache::thrift::protocol::TVirtualProtocol<BoundedReader,
                                apache::thrift::protocol::TProtocolDefaults>
{
public:
    using TType = apache::thrift::protocol::TType;
    using TMessageType = apache::thrift::protocol::TMessageType;

    BoundedReader(const void *bytes, size_t size);

    size_t bytesLeft() const { return size_t(m_end - m_at); }

    uint32_t readMessageBegin(std::string &name, TMessageType &type, int32_t &sequence);
    uint32_t readMessageEnd() { return 0; }
    uint32_t readStructBegin(std::string &) { return 0; }
    uint32_t readStructEnd() { return 0; }
    uint32_t readFieldBegin(std::string &, TType &type, int16_t &id)
    {
        type = takeType();
        id = type == apache::thrift::protocol::T_STOP ? 0 : int16_t(be16toh(take<uint16_t>()));
        return 0;
    }
    uint32_t readFieldEnd() { return 0; }
    uint32_t readMapBegin(TType &key, TType &value, uint32_t &size);
    uint32_t readMapEnd() { return 0; }
    uint32_t readListBegin(TType &element, uint32_t &size);
    uint32_t readListEnd() { return 0; }
    uint32_t readSetBegin(TType &element, uint32_t &size) { return readListBegin(element, size); }
    uint32_t readSetEnd() { return 0; }
    uint32_t readBool(bool &value)
    {
        value = take<uint8_t>() != 0;
        return 0;
    }
    uint32_t readBool(std::vector<bool>::reference value)
    {
        value = take<uint8_t>() != 0;
        return 0;
    }
    uint32_t readByte(int8_t &value)
    {
        value = take<int8_t>();
        return 0;
    }
    uint32_t readI16(int16_t &value)
    {
        value = int16_t(be16toh(take<uint16_t>()));
        return 0;
    }
    uint32_t readI32(int32_t &value)
    {
        value = int32_t(be32toh(take<uint32_t>()));
        return 0;
    }
    uint32_t readI64(int64_t &value)
    {
        value = int64_t(be64toh(take<uint64_t>()));
        return 0;
    }
    uint32_t readDouble(double &value)
    {
        const uint64_t bits = be64toh(take<uint64_t>());
        std::memcpy(&value, &bits, sizeof(value));
        return 0;
    }
    uint32_t readString(std::string &text)
    {
        const uint32_t size = be32toh(take<uint32_t>());
        if (size > bytesLeft() || size > m_largestText) [[unlikely]]
            failSize();
        text.assign(m_at, size);
        m_at += size;
        return 0;
    }
    uint32_t readBinary(std::string &bytes) { return readString(bytes); }

private:
    template <class Number> Number take()
    {
        if (bytesLeft() < sizeof(Number)) [[unlikely]]
            failShort();
        Number number;
        std::memcpy(&number, m_at, sizeof(number));
        m_at += sizeof(number);
        return number;
    }
    TType takeType()
    {
        const uint8_t number = take<uint8_t>();
        if (number > apache::thrift::protocol::T_UTF16) [[unlikely]]
            failType(); // no value of the enumeration, so it may not even be held in one
        return TType(number);
    }
    uint32_t takeCount(size_t fewestBytes, bool ofRecords);
    [[noreturn]] static void failShort();
    [[noreturn]] static void failSize();
    [[noreturn]] static void failType();

    const char *m_at;
    const char *m_end;
    uint32_t m_largestText;
    uint32_t m_entries = 0;
    uint32_t m_records = 0;
};

} // namespace zel::wire
