// The recent list with its models beside a plain list; see viewtimes.h.
#include "recentbenchdata.h"
#include "viewtimes.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"

using namespace zel::bench;
using recenttest::FixedNow;
using zel::recent::bench::benchNow;
using zel::recent::bench::records;

namespace {

const QStringList &names()
{
    static const QStringList list = [] {
        QStringList made;
        for (const RecentFileInfo &record : records())
            made << record.displayText;
        return made;
    }();
    return list;
}

struct Recent
{
    Recent()
    {
        proxy.setSourceModel(&model);
        view.setModel(&proxy);
        view.resize(680, 540);
        view.show();
        paint.timeOf([this] { view.viewport()->update(); });
    }
    void load() { model.setRecords(records()); }
    void clear() { model.removeAll(); }

    FixedNow now{benchNow()};
    ZelBoxRecentFileModel model;
    RecentSortFilterModel proxy;
    ZelBoxRecentFileListView view;
    PaintWait paint{view.viewport()};
};

// At most 1.5 times a plain list that was told that its rows are of one size is what we want.
void viewLoadToFirstPaint(benchmark::State &state, bool uniform)
{
    Plain plain(names(), uniform);
    Recent recent;
    loadTime(plain); // icons and fonts come once
    loadTime(recent);
    compare(
        state, [&] { return loadTime(plain); }, [&] { return loadTime(recent); });
}
BENCHMARK_CAPTURE(viewLoadToFirstPaint, plain, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(viewLoadToFirstPaint, uniform, true)->Unit(benchmark::kMillisecond)->UseRealTime();

// At most 1.5 ms is what we want. A row that shows gets another text; in the recent list it also moves to the
// top.
void viewChangeToRepaint(benchmark::State &state)
{
    Plain plain(names());
    Recent recent;
    loadTime(plain);
    loadTime(recent);
    int turn = 0;
    compare(
        state,
        [&] {
            const QString text = QString::number(++turn);
            return plain.paint.timeOf([&] { plain.model.setData(plain.model.index(3), text); });
        },
        [&] {
            RecentFileInfo record = recent.proxy.record(6);
            record.lastAccess = benchNow().toMSecsSinceEpoch() + ++turn;
            const double time = recent.paint.timeOf([&] { recent.model.updateRecord(record); });
            require(recent.proxy.rowOf(record.id) == 2); // below the two that are pinned
            return time;
        });
}
BENCHMARK(viewChangeToRepaint)->Unit(benchmark::kMillisecond)->UseRealTime();

// At most 16 ms a letter is what we want.
void viewLetterToRepaint(benchmark::State &state)
{
    Recent recent;
    loadTime(recent);
    recent.view.setCurrentIndex(recent.proxy.index(4));
    typeLetters(state, recent, QStringLiteral("budget12"), [&](const QString &text) {
        recent.view.changeFilter(!text.isEmpty(), text.split(QLatin1Char(' '), Qt::SkipEmptyParts), [&] {
            recent.proxy.setFilter({text, {}});
        });
    });
}
BENCHMARK(viewLetterToRepaint)->Unit(benchmark::kMillisecond)->UseRealTime();

// At most 0.7 is what we want.
void viewScrolledFrame(benchmark::State &state)
{
    Plain plain(names());
    Recent recent;
    loadTime(plain);
    loadTime(recent);
    compare(
        state, [&] { return pageTime(plain); }, [&] { return pageTime(recent); });
}
BENCHMARK(viewScrolledFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
