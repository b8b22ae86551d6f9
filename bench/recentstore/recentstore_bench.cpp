// Figures of the recent-file store with 50,000 records; each benchmark checks its outcome.
#include "../loopgap.h"
#include "platform/recentstore/recentfixture.h"

#include "platform/impl/recentstore/records/recentlist.h"
#include "platform/impl/recentstore/xbel/xbelreader.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <benchmark/benchmark.h>

using namespace zel::recent;
using namespace zel::recent::test;

namespace {

constexpr int Count = 50'000;

QVector<Bookmark> bookmarks()
{
    QVector<Bookmark> list;
    list.reserve(Count);
    for (int i = 0; i < Count; ++i)
        list.append({QStringLiteral("/nowhere/some folder/document %1.odt").arg(i), i, {}});
    return list;
}

// A benchmark of something that does not work says nothing.
void require(bool holds)
{
    if (!holds)
        qFatal("the outcome is wrong");
}

Home &filledHome()
{
    static Home home;
    static const bool filled = [] {
        home.setDesktop(bookmarks());
        Store store(home);
        if (!store.load(120'000) || store.proxy.records().size() != Count)
            return false;
        // The oldest is looked for last.
        while (store.proxy.records().last().presence == RecentFileInfo::Presence::Unknown) {
            if (!store.changed.wait(60'000))
                return false;
        }
        return true;
    }();
    require(filled);
    return home;
}

void parseList(benchmark::State &state)
{
    const QByteArray data = listText(bookmarks());
    for (auto _ : state) {
        QBuffer buffer;
        buffer.setData(data);
        buffer.open(QIODevice::ReadOnly);
        XbelReader reader(buffer, timeOf(2 * Count));
        while (reader.read(20'000) == XbelReader::State::Reading) { }
        require(reader.takeEntries().size() == Count);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * data.size());
}
BENCHMARK(parseList)->Unit(benchmark::kMillisecond);

void firstImport(benchmark::State &state)
{
    const QByteArray data = listText(bookmarks());
    double gap = 0;
    for (auto _ : state) {
        Home home;
        replaceFile(home.places.desktopList, data);
        Store store(home);
        const LoopGap loop;
        require(store.load(120'000) && store.proxy.records().size() == Count);
        gap = std::max(gap, loop.ms());
    }
    state.counters["longest_gui_gap_ms"] = gap;
}
BENCHMARK(firstImport)->Unit(benchmark::kMillisecond)->UseRealTime();

void loadUntilInitFinished(benchmark::State &state)
{
    const Home &home = filledHome();
    double gap = 0;
    for (auto _ : state) {
        auto store = std::make_unique<Store>(home);
        const LoopGap loop;
        require(store->load(60'000) && store->proxy.records().size() == Count);
        gap = std::max(gap, loop.ms());
        state.PauseTiming();
        store.reset();
        state.ResumeTiming();
    }
    state.counters["longest_gui_gap_ms"] = gap;
}
BENCHMARK(loadUntilInitFinished)->Unit(benchmark::kMillisecond)->UseRealTime();

// From the replacement of the list by another program to the notice; contains the pause that ends a burst.
void changedEntryToNotice(benchmark::State &state)
{
    Home &home = filledHome();
    Store store(home);
    store.load(60'000);
    QVector<Bookmark> list = bookmarks();
    int minute = 2 * Count;
    double gap = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list[Count / 2].minute = ++minute;
        const QByteArray data = listText(list);
        store.changed.clear();
        state.ResumeTiming();
        replaceFile(home.places.desktopList, data);
        const LoopGap loop;
        // Other notices, of files looked at, may come before it.
        while (store.proxy.records().first().lastAccess != timeOf(minute))
            require(store.changed.wait(60'000));
        gap = std::max(gap, loop.ms());
    }
    state.counters["longest_gui_gap_ms"] = gap;
}
BENCHMARK(changedEntryToNotice)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void openedToNotice(benchmark::State &state)
{
    Store store(filledHome(), WorkMode::ReadOnly);
    store.load(60'000);
    for (auto _ : state) {
        store.proxy.noteOpened(QStringLiteral("/nowhere/some folder/document 7.odt"));
        require(store.changed.wait(60'000));
    }
}
BENCHMARK(openedToNotice)->Unit(benchmark::kMillisecond)->UseRealTime();

// What one small notice costs the GUI thread.
void updateShownList(benchmark::State &state)
{
    RecordInfoList list;
    for (int i = 0; i < Count; ++i) {
        StoredRecord record;
        record.id = QStringLiteral("/nowhere/some folder/document %1.odt").arg(i);
        record.openedAt = timeOf(Count - i);
        list.append(record.toInfo());
    }
    qint64 time = timeOf(Count);
    for (auto _ : state) {
        RecentDelta delta;
        delta.changed = {list.last()};
        delta.changed.first().lastAccess = ++time;
        update(list, delta);
        require(list.first().lastAccess == time && list.size() == Count);
    }
}
BENCHMARK(updateShownList)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("zel.*.info=false"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
