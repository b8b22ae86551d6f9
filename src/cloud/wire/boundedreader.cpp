#include "cloud/wire/boundedreader.h"

#include "cloud/wire/limits.h"

#include <thrift/transport/TBufferTransports.h>

using namespace apache::thrift::protocol;
using apache::thrift::TConfiguration;
using apache::thrift::transport::TMemoryBuffer;

namespace zel::wire {
namespace {

constexpr uint32_t StrictMark = 0x80010000;
constexpr uint32_t StrictMask = 0xffff0000;

// The base class wants a transport; it is never read from. It also carries the limit of nesting.
std::shared_ptr<TMemoryBuffer> noTransport()
{
    static const auto none = std::make_shared<TMemoryBuffer>(
        std::make_shared<TConfiguration>(int(LargestFrame), int(LargestFrame), int(DeepestNesting)));
    return none;
}

} // namespace

BoundedReader::BoundedReader(const void *bytes, size_t size)
    : TVirtualProtocol(noTransport()),
      m_at(static_cast<const char *>(bytes)),
      m_end(m_at + size),
      m_largestText(LargestText)
{
}

uint32_t BoundedReader::readMessageBegin(std::string &name, TMessageType &type, int32_t &sequence)
{
    const uint32_t head = be32toh(take<uint32_t>());
    if ((head & StrictMask) != StrictMark)
        throw TProtocolException(TProtocolException::BAD_VERSION, "not a strict binary message");
    const uint32_t kind = head & 0xff;
    if (kind < T_CALL || kind > T_ONEWAY)
        throw TProtocolException(TProtocolException::INVALID_DATA, "unknown kind of message");
    type = TMessageType(kind);
    m_largestText = LongestMethodName;
    readString(name);
    m_largestText = LargestText;
    return readI32(sequence);
}

uint32_t BoundedReader::readMapBegin(TType &key, TType &value, uint32_t &size)
{
    key = takeType();
    value = takeType();
    const bool ofRecords = key == T_STRUCT || value == T_STRUCT;
    size = takeCount(ofRecords ? SmallestRecord : 2, ofRecords);
    return 0;
}

uint32_t BoundedReader::readListBegin(TType &element, uint32_t &size)
{
    element = takeType();
    size = takeCount(element == T_STRUCT ? SmallestRecord : 1, element == T_STRUCT);
    return 0;
}

// Every entry takes at least a byte of the frame, so a count beyond the bytes left is a lie.
uint32_t BoundedReader::takeCount(size_t fewestBytes, bool ofRecords)
{
    const uint32_t count = be32toh(take<uint32_t>());
    if (count > LargestContainer || count > bytesLeft() / fewestBytes)
        failSize();
    m_entries += count;
    m_records += ofRecords ? count : 0;
    if (m_entries > MostEntries || m_records > MostRecords)
        failSize();
    return count;
}

void BoundedReader::failShort()
{
    throw TProtocolException(TProtocolException::INVALID_DATA, "the message ends too early");
}

void BoundedReader::failType()
{
    throw TProtocolException(TProtocolException::INVALID_DATA, "unknown type of value");
}

void BoundedReader::failSize()
{
    throw TProtocolException(TProtocolException::SIZE_LIMIT, "a text or list is larger than the message");
}

} // namespace zel::wire
