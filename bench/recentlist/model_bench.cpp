// Figures of the Recent page's models with 100,000 records; each benchmark checks its outcome.
#include "recentbenchdata.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>

#include <benchmark/benchmark.h>

using namespace zel::recent::bench;
using recenttest::FixedNow;

namespace {

constexpr zel::ListSort ByName{zel::ListSort::Key::Name, Qt::AscendingOrder};

struct Models
{
    explicit Models(bool load = true)
    {
        proxy.setSourceModel(&model);
        if (load)
            model.setRecords(records());
    }

    FixedNow now{benchNow()};
    ZelBoxRecentFileModel model;
    RecentSortFilterModel proxy;
};

void loadModel(benchmark::State &state)
{
    const FixedNow now(benchNow());
    ZelBoxRecentFileModel model;
    for (auto _ : state) {
        model.setRecords(records());
        require(model.rowCount() == Count);
    }
}
BENCHMARK(loadModel)->Unit(benchmark::kMillisecond);

/// What the first question for an id costs besides: after the rows were painted, or in a reload that has
/// something selected.
void loadModelAndFind(benchmark::State &state)
{
    const FixedNow now(benchNow());
    ZelBoxRecentFileModel model;
    for (auto _ : state) {
        model.setRecords(records());
        require(model.rowOf(records().at(Count / 2).id) == Count / 2);
    }
}
BENCHMARK(loadModelAndFind)->Unit(benchmark::kMillisecond);

void loadModelAndProxy(benchmark::State &state)
{
    Models models(false);
    for (auto _ : state) {
        models.model.setRecords(records());
        require(models.proxy.rowCount() == Count);
    }
}
BENCHMARK(loadModelAndProxy)->Unit(benchmark::kMillisecond);

/// From the middle to the top and back, in the order that is asked for.
void changeRecord(benchmark::State &state, const zel::ListSort &sort, const QString &filter)
{
    Models models;
    models.proxy.setFilter({filter, {}});
    models.proxy.setSort(sort);
    if (models.proxy.isSorting()) {
        QEventLoop loop;
        QObject::connect(&models.proxy, &QAbstractItemModel::layoutChanged, &loop, &QEventLoop::quit);
        loop.exec();
    }
    RecentFileInfo record = records().at(Count / 2);
    const qint64 middle = record.lastAccess;
    const qint64 top = benchNow().toMSecsSinceEpoch() + 1;
    for (auto _ : state) {
        record.lastAccess = record.lastAccess == top ? middle : top;
        record.size = record.lastAccess == top ? 20'000'000 : 0;
        require(models.model.updateRecord(record));
    }
    require(models.proxy.record(models.proxy.rowOf(record.id)) == record);
}
BENCHMARK_CAPTURE(changeRecord, by_time, zel::ListSort(), QString())->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeRecord, by_name, ByName, QString())->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeRecord, by_size, zel::ListSort{zel::ListSort::Key::Size}, QString())
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeRecord, filtered, zel::ListSort(), QStringLiteral("folder"))
    ->Unit(benchmark::kMicrosecond);

void addAndRemoveRecord(benchmark::State &state)
{
    Models models;
    const RecentFileInfo record =
        recenttest::record(QStringLiteral("new"), benchNow().toMSecsSinceEpoch() + 1);
    for (auto _ : state) {
        models.model.addRecord(record);
        require(models.proxy.rowCount() == Count + 1);
        models.model.removeRecord(record.id);
    }
}
BENCHMARK(addAndRemoveRecord)->Unit(benchmark::kMicrosecond);

void regroupAtMidnight(benchmark::State &state)
{
    Models models;
    qint64 day = 0;
    for (auto _ : state) {
        zel::setFixedNow(benchNow().addDays(++day));
        models.model.refreshDay();
        const int newest =
            zel::recent::timeGroupKind(models.model.groupEdges(), records().first().lastAccess);
        require(newest > 1 && models.proxy.sections().at(1).key == newest);
    }
}
BENCHMARK(regroupAtMidnight)->Unit(benchmark::kMicrosecond);

/// One letter after the other, then none.
void typeFilter(benchmark::State &state)
{
    Models models;
    const QString text = QStringLiteral("budget 12");
    int typed = 0;
    double slowest = 0;
    for (auto _ : state) {
        typed = typed == text.size() ? 0 : typed + 1;
        QElapsedTimer timer;
        timer.start();
        models.proxy.setFilter({text.left(typed), {}});
        slowest = std::max(slowest, double(timer.nsecsElapsed()) / 1e6);
        require(models.proxy.rowCount() > 0);
    }
    state.counters["slowest_ms"] = slowest;
}
BENCHMARK(typeFilter)->Unit(benchmark::kMillisecond);

void filterKind(benchmark::State &state)
{
    Models models;
    bool pdf = false;
    for (auto _ : state) {
        pdf = !pdf;
        models.proxy.setFilter({{}, pdf ? zel::recent::DocumentKind::Pdf : zel::recent::DocumentKind::Sheet});
        require(models.proxy.rowCount() > Count / 10);
    }
}
BENCHMARK(filterKind)->Unit(benchmark::kMillisecond);

void sortBy(benchmark::State &state, zel::ListSort::Key key)
{
    Models models;
    for (auto _ : state) {
        models.proxy.setSort({key, Qt::AscendingOrder});
        require(!models.proxy.isSorting());
        models.proxy.setSort({});
    }
}
BENCHMARK_CAPTURE(sortBy, size_and_back, zel::ListSort::Key::Size)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortBy, type_and_back, zel::ListSort::Key::Type)->Unit(benchmark::kMillisecond);

// The GUI thread's share is what it takes to start the sorting and to show its result.
void sortByName(benchmark::State &state)
{
    Models models;
    double gui = 0;
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        models.proxy.setSort(ByName);
        const double start = double(timer.nsecsElapsed()) / 1e6;
        QEventLoop loop;
        double applying = 0;
        const auto begin = QObject::connect(QAbstractEventDispatcher::instance(),
            &QAbstractEventDispatcher::awake, &loop, [&] { timer.start(); });
        const auto end = QObject::connect(&models.proxy, &QAbstractItemModel::layoutChanged, &loop, [&] {
            applying = double(timer.nsecsElapsed()) / 1e6;
            loop.quit();
        });
        loop.exec();
        QObject::disconnect(begin);
        QObject::disconnect(end);
        gui = std::max({gui, start, applying});
        state.PauseTiming();
        models.proxy.setSort({});
        state.ResumeTiming();
    }
    state.counters["longest_gui_ms"] = gui;
}
BENCHMARK(sortByName)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
