// The longest step of the service's main thread while something large happens; each benchmark checks its
// outcome.
#include "../loopgap.h"
#include "service/methods/transfers/transferfixture.h"

#include "service/methods/envelope/envelopemethods.h"

#include <QCoreApplication>
#include <QProcess>

#include <benchmark/benchmark.h>
#include <malloc.h>

using namespace zel::service;
using namespace zel::vela;

namespace {

// A benchmark of something that does not work says nothing.
void require(bool holds)
{
    if (!holds)
        qFatal("the outcome is wrong");
}

bool waitFor(const std::function<bool()> &done)
{
    return QTest::qWaitFor(done, 180000);
}

// Another program removes a seventh of a drive's folders.
void removedByOthers(benchmark::State &state)
{
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        DriveFixture fixture;
        const int folders = int(state.range(0));
        for (int i = 0; i < folders; ++i)
            require(QDir().mkpath(fixture.root() + QStringLiteral("/%1/%2").arg(i % 100).arg(i)));
        int told = 0;
        int gone = 0;
        const int expected = 14 + 14 * folders / 100;
        QObject::connect(&fixture.events, &DriveEvents::told, [&told] { ++told; });
        QObject::connect(&fixture.events, &DriveEvents::filesGone,
            [&gone](const QStringList &ids) { gone += ids.size(); });
        fixture.events.start(fixture.root());
        require(waitFor([&told] { return told > 0; }));
        state.ResumeTiming();
        const LoopGap gap;
        QProcess other;
        other.start(QStringLiteral("sh"),
            {QStringLiteral("-c"), QStringLiteral("rm -r \"$0\"/1[0-3] \"$0\"/?"), fixture.root()});
        require(waitFor([&] { return gone == expected; }));
        require(waitFor([&other] { return other.state() == QProcess::NotRunning; }));
        QTest::qWait(1000); // what follows of it
        state.counters["longest_ms"] = gap.ms();
    }
}
BENCHMARK(removedByOthers)->Arg(2000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

// All of many transfers are paused, as one request.
void pauseAll(benchmark::State &state)
{
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        TransferFixture fixture;
        TransferTasks tasks(size_t(state.range(0)));
        for (TransferTask &task : tasks) {
            task.info.transferType = int(TransferType::Upload);
            task.info.transferState = int(TransferState::Waiting);
            task.info.localPath = task.info.name = "document.odt";
        }
        require(fixture.table.add(fixture.me.userId, tasks) == zel::wire::ServiceError::None);
        state.ResumeTiming();
        UpdateTransferInfoArg request;
        request.allTasks = true;
        request.operation = 1;
        const LoopGap gap;
        const int32_t call = fixture.client.send("updateTransferInfo", request);
        const auto &arrived = fixture.client.arrived;
        require(waitFor([&] { return !arrived.empty() && arrived.back().sequence == call; }));
        QTest::qWait(1); // for the end of the last step
        state.counters["longest_ms"] = gap.ms();
        const auto result = fixture.client.answer<UpdateTransferInfoResult>(call);
        require(result.tasks.size() == tasks.size());
    }
}
BENCHMARK(pauseAll)->Arg(5000)->Unit(benchmark::kMillisecond)->Iterations(1);

// A request of many records that say nothing.
void emptyRecords(benchmark::State &state)
{
    for ([[maybe_unused]] auto round : state) {
        FilledDrive fixture;
        BatchCopyArg request;
        request.conflicts.resize(size_t(state.range(0)));
        const QByteArray frame = zel::wire::callFrame("batchCopy", 1, request);
        request = {};
        ::malloc_trim(0);
        QElapsedTimer watch;
        watch.start();
        const int32_t call = fixture.client.send(frame);
        state.counters["longest_ms"] = double(watch.nsecsElapsed()) / 1e6;
        state.counters["more_mb"] = double(::mallinfo2().uordblks) / (1 << 20);
        require(fixture.client.answer<BatchCopyResult>(call).state == 0);
    }
}
BENCHMARK(emptyRecords)->Arg(60000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
