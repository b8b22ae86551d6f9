// The recent list beside a plain QListView over a flat list of as many rows, turn by turn in one run: what
// the user waits for until it is painted. "ratio" is the recent list's time by the plain one's (medians).
#include "recentbenchdata.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyle>
#include <QStyleFactory>
#include <QTimer>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>

using namespace zel::recent::bench;
using recenttest::FixedNow;

namespace {

/// Runs the event loop until the widget has been painted.
class PaintWait : public QObject
{
public:
    explicit PaintWait(QWidget *widget) : m_widget(widget)
    {
        widget->installEventFilter(this);
        connect(&m_limit, &QTimer::timeout, this, [] { qFatal("nothing was painted"); });
    }
    /// Milliseconds from the begin of `change` to the end of the painting that it leads to.
    template <typename Change> double timeOf(const Change &change)
    {
        QCoreApplication::sendPostedEvents();
        QElapsedTimer timer;
        timer.start();
        change();
        m_limit.start(30'000);
        m_loop.exec();
        m_limit.stop();
        return double(timer.nsecsElapsed()) / 1e6;
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_widget && event->type() == QEvent::Paint)
            m_loop.quit(); // comes back when the event has been dealt with
        return false;
    }

private:
    QWidget *m_widget;
    QEventLoop m_loop;
    QTimer m_limit;
};

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

struct Plain
{
    explicit Plain(bool uniform = false)
    {
        std::unique_ptr<QStyle> style(
            QStyleFactory::create(QStringLiteral("Fusion"))); // Qt's own, not the box's
        style->setParent(&view);
        view.setStyle(style.release());
        view.setUniformItemSizes(uniform);
        view.setModel(&model);
        view.resize(680, 540);
        view.show();
        paint.timeOf([this] { view.viewport()->update(); });
    }
    void load() { model.setStringList(names()); }
    void clear() { model.setStringList({}); }

    QStringListModel model;
    QListView view;
    PaintWait paint{view.viewport()};
};

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

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + std::ptrdiff_t(times.size() / 2), times.end());
    return times[times.size() / 2];
}

/// Measures both by turns; the time column is of both.
template <typename PlainTime, typename RecentTime>
void compare(benchmark::State &state, const PlainTime &plainTime, const RecentTime &recentTime)
{
    std::vector<double> plain;
    std::vector<double> recent;
    for (auto _ : state) {
        plain.push_back(plainTime());
        for (int i = 0; i < 5; ++i) // the plain list takes long
            recent.push_back(recentTime());
    }
    state.counters["plain_ms"] = median(plain);
    state.counters["recent_ms"] = median(recent);
    state.counters["first_ms"] =
        recent.front(); // after a load, a change copies the list that the store shares
    state.counters["ratio"] = median(recent) / median(plain);
}

template <typename Side> double loadTime(Side &side)
{
    if (side.view.model()->rowCount() > 0)
        side.paint.timeOf([&] { side.clear(); });
    const double time = side.paint.timeOf([&] { side.load(); });
    require(side.view.model()->rowCount() == Count);
    return time;
}

// At most 1.3 is what we want, of a plain list as it comes; uniform is one that was told that its rows are of
// one size, and so has next to nothing to do.
void viewLoadToFirstPaint(benchmark::State &state, bool uniform)
{
    Plain plain(uniform);
    Recent recent;
    loadTime(plain); // icons and fonts come once
    loadTime(recent);
    compare(
        state, [&] { return loadTime(plain); }, [&] { return loadTime(recent); });
}
BENCHMARK_CAPTURE(viewLoadToFirstPaint, plain, false)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(viewLoadToFirstPaint, uniform, true)->Unit(benchmark::kMillisecond)->UseRealTime();

// At most 1.3 is what we want. A row that shows gets another text; in the recent list it also moves to the
// top.
void viewChangeToRepaint(benchmark::State &state)
{
    Plain plain;
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

template <typename Side> double pageTime(Side &side)
{
    QScrollBar *bar = side.view.verticalScrollBar();
    const int next = bar->value() + bar->pageStep();
    return side.paint.timeOf([&] { bar->setValue(next < bar->maximum() ? next : 0); });
}

// A page further: every row of the frame is a new one.
void viewScrolledFrame(benchmark::State &state)
{
    Plain plain;
    Recent recent;
    loadTime(plain);
    loadTime(recent);
    compare(
        state, [&] { return pageTime(plain); }, [&] { return pageTime(recent); });
}
BENCHMARK(viewScrolledFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
