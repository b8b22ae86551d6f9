// Figures of the list kit's model with 100,000 rows, through the client that adds least to it: the documents
// of one folder. Each benchmark checks its outcome.
#include "clouddoc/clouddocmodel.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>

namespace {

constexpr int Count = 100'000;
constexpr zel::ListSort ByName{zel::ListSort::Key::Name, Qt::AscendingOrder};

// A benchmark of something that does not work says nothing.
void require(bool holds)
{
    if (!holds)
        qFatal("the outcome is wrong");
}

CloudDocument document(int number)
{
    CloudDocument document;
    document.id = QString::number(number);
    document.name = QStringLiteral("Quarterly report %1.odt").arg(number * 7919LL % Count);
    document.modifiedAt = 1'710'900'000'000 - number * 1000LL;
    document.size = number * 31LL % 1'000'000;
    return document;
}

const CloudDocuments &documents()
{
    static const CloudDocuments list = [] {
        CloudDocuments made;
        for (int number = 0; number < Count; ++number)
            made.append(document(number));
        return made;
    }();
    return list;
}

void load(benchmark::State &state)
{
    for (auto _ : state) {
        CloudDocModel model;
        model.add(documents());
        require(model.rowCount() == Count);
    }
}
BENCHMARK(load)->Unit(benchmark::kMillisecond);

// A new document, and its end.
void push(benchmark::State &state)
{
    CloudDocModel model;
    model.add(documents());
    CloudDocument fresh = document(Count);
    fresh.name = QStringLiteral("Quarterly report 50000 b.odt");
    for (auto _ : state) {
        model.put(fresh);
        require(model.rowCount() == Count + 1);
        state.PauseTiming();
        model.remove({fresh.id});
        state.ResumeTiming();
    }
}
BENCHMARK(push)->Unit(benchmark::kMicrosecond);

// In the order by time, so that the row moves from one end to the other.
void change(benchmark::State &state)
{
    CloudDocModel model;
    model.add(documents());
    model.setSortOrder({});
    CloudDocument moved = document(Count / 2);
    qint64 time = 1'710'900'000'000;
    for (auto _ : state) {
        moved.modifiedAt = moved.modifiedAt > time ? 0 : time + 1;
        model.put(moved);
    }
    require(model.rowOf(moved.id) == (moved.modifiedAt == 0 ? Count - 1 : 0));
}
BENCHMARK(change)->Unit(benchmark::kMicrosecond);

/// One letter after the other, then none.
void typeFilter(benchmark::State &state)
{
    CloudDocModel model;
    model.add(documents());
    const QString text = QStringLiteral("rep 12");
    int typed = 0;
    double slowest = 0;
    for (auto _ : state) {
        typed = typed == text.size() ? 0 : typed + 1;
        QElapsedTimer timer;
        timer.start();
        model.setFilterText(text.left(typed));
        slowest = std::max(slowest, double(timer.nsecsElapsed()) / 1e6);
        require(model.rowCount() > 0);
    }
    state.counters["slowest_ms"] = slowest;
}
BENCHMARK(typeFilter)->Unit(benchmark::kMillisecond);

void sortBy(benchmark::State &state, zel::ListSort::Key key)
{
    CloudDocModel model;
    model.add(documents());
    for (auto _ : state) {
        model.setSortOrder({key, Qt::DescendingOrder});
        model.setSortOrder(ByName);
    }
    require(model.document(0).name == QLatin1String("Quarterly report 0.odt"));
}
BENCHMARK_CAPTURE(sortBy, time_and_back, zel::ListSort::Key::Time)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(sortBy, size_and_back, zel::ListSort::Key::Size)->Unit(benchmark::kMillisecond);

} // namespace
