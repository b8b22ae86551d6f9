// Reading and writing an answer of 10,000 cloud items, and a small envelope, beside the thrift library alone.
#include "cloud/wire/message.h"
#include "common_types.h"
#include "drive_types.h"
#include "plain_drive_types.h"
#include "plain_drive_types.tcc"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

using apache::thrift::protocol::TBinaryProtocolT;
using apache::thrift::transport::TMemoryBuffer;
using namespace zel;

namespace {

constexpr int Items = 10000;

vela::GetInfoListResult listing()
{
    vela::GetInfoListResult answer;
    for (int i = 0; i < Items; ++i) {
        vela::CloudItem item;
        item.groupId = "0";
        item.parentId = "4f1c9a7e2b6d";
        item.id = "item" + std::to_string(i);
        item.fileId = item.id;
        item.size = i * 1000;
        item.name = "Quarterly report " + std::to_string(i) + ".docx";
        item.type = "file";
        item.creator = "user1";
        item.modifier = "user2";
        item.ctime = 1700000000000 + i;
        item.mtime = 1710000000000 + i;
        item.category = {"document"};
        item.extraParam = {{"etag", "v1"}};
        answer.items.push_back(item);
    }
    answer.total = Items;
    return answer;
}

void check(bool right)
{
    if (!right)
        std::abort(); // a wrong result makes its time worthless
}

// As the client does it: the head, then the record in its one-field struct.
void decodeAnswer(benchmark::State &state)
{
    const QByteArray frame = wire::replyFrame("getInfoList", 1, listing());
    for ([[maybe_unused]] auto round : state) {
        wire::MessageReader reader(frame.constData() + 4, size_t(frame.size()) - 4);
        wire::MessageHead head;
        vela::GetInfoListResult answer;
        check(reader.readHead(head) && reader.readAnswer(answer) && answer.items.size() == Items);
    }
    state.SetBytesProcessed(state.iterations() * frame.size());
}

// The record alone, no message around it, without virtual calls.
void decodeWithLibrary(benchmark::State &state)
{
    const QByteArray frame = wire::replyFrame("getInfoList", 1, listing());
    const int head = 4 + 4 + 4 + int(sizeof("getInfoList") - 1) + 4 + 3;
    QByteArray record = frame.mid(head, frame.size() - head - 1);
    for ([[maybe_unused]] auto round : state) {
        const auto buffer = std::make_shared<TMemoryBuffer>(
            reinterpret_cast<uint8_t *>(record.data()), uint32_t(record.size()));
        TBinaryProtocolT<TMemoryBuffer> protocol(buffer);
        plain::GetInfoListResult answer;
        answer.read(&protocol);
        check(answer.items.size() == Items);
    }
    state.SetBytesProcessed(state.iterations() * record.size());
}

void encodeAnswer(benchmark::State &state)
{
    const vela::GetInfoListResult answer = listing();
    int size = 0;
    for ([[maybe_unused]] auto round : state)
        check((size = wire::replyFrame("getInfoList", 1, answer).size()) > Items);
    state.SetBytesProcessed(state.iterations() * size);
}

void encodeEnvelope(benchmark::State &state)
{
    vela::VelaIpcArg envelope;
    envelope.nameSpace = "KVelaIpcCallObj";
    envelope.method = "getCloudDiskEntryVisible";
    for ([[maybe_unused]] auto round : state)
        check(!wire::callFrame("velaIpcCall", 1, envelope).isEmpty());
}

BENCHMARK(decodeAnswer)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeWithLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(encodeAnswer)->Unit(benchmark::kMillisecond);
BENCHMARK(encodeEnvelope);

} // namespace

BENCHMARK_MAIN();
