#include "service/roaming/recordbytes.h"

#include "cloud/wire/boundedreader.h"

#include <thrift/TBase.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace zel::service {

QByteArray recordBytes(const apache::thrift::TBase &record)
{
    const auto buffer = std::make_shared<apache::thrift::transport::TMemoryBuffer>();
    apache::thrift::protocol::TBinaryProtocol protocol(buffer);
    record.write(&protocol);
    uint8_t *bytes = nullptr;
    uint32_t size = 0;
    buffer->getBuffer(&bytes, &size);
    return QByteArray(reinterpret_cast<const char *>(bytes), int(size));
}

bool readRecord(const QByteArray &bytes, apache::thrift::TBase &record)
{
    try {
        wire::BoundedReader reader(bytes.constData(), size_t(bytes.size()));
        record.read(&reader);
        return true;
    } catch (const std::exception &) {
        return false;
    }
}

} // namespace zel::service
