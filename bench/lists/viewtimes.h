#pragma once

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
#include <vector>

/// A list of ours beside a plain QListView over as many rows, turn by turn in one run: what the user waits
/// for until it is painted. "ratio" is our list's time by the plain one's (medians).
namespace zel::bench {

inline constexpr int Rows = 100'000;

// A benchmark of something that does not work says nothing.
inline void require(bool holds)
{
    if (!holds)
        qFatal("the outcome is wrong");
}

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

/// `uniform`: it was told that its rows are of one size, and so has next to nothing to do.
struct Plain
{
    explicit Plain(const QStringList &rows, bool uniform = false) : names(rows)
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
    void load() { model.setStringList(names); }
    void clear() { model.setStringList({}); }

    QStringList names;
    QStringListModel model;
    QListView view;
    PaintWait paint{view.viewport()};
};

inline double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + std::ptrdiff_t(times.size() / 2), times.end());
    return times[times.size() / 2];
}

/// Measures both by turns; the time column is of both.
template <typename PlainTime, typename OurTime>
void compare(benchmark::State &state, const PlainTime &plainTime, const OurTime &ourTime)
{
    std::vector<double> plain;
    std::vector<double> ours;
    for (auto _ : state) {
        plain.push_back(plainTime());
        for (int i = 0; i < 5; ++i) // the plain list takes long
            ours.push_back(ourTime());
    }
    state.counters["plain_ms"] = median(plain);
    state.counters["ours_ms"] = median(ours);
    state.counters["first_ms"] = ours.front(); // later ones may find things made
    state.counters["ratio"] = median(ours) / median(plain);
}

template <typename Side> double loadTime(Side &side)
{
    if (side.view.model()->rowCount() > 0)
        side.paint.timeOf([&] { side.clear(); });
    const double time = side.paint.timeOf([&] { side.load(); });
    require(side.view.model()->rowCount() == Rows);
    return time;
}

/// Types a text letter by letter into a filter, and takes it back at once. "letter_ms" is what the slowest
/// letter takes until the rows are painted, "back_ms" the way back to all (medians).
template <typename Side, typename SetText>
void typeLetters(benchmark::State &state, Side &side, const QString &text, const SetText &setText)
{
    std::vector<std::vector<double>> times(size_t(text.size()) + 1);
    for (auto _ : state) {
        for (int typed = 1; typed <= text.size(); ++typed)
            times[size_t(typed)].push_back(side.paint.timeOf([&] { setText(text.left(typed)); }));
        require(side.view.model()->rowCount() > 0 && side.view.model()->rowCount() < Rows / 10);
        times[0].push_back(side.paint.timeOf([&] { setText(QString()); }));
        require(side.view.model()->rowCount() == Rows);
    }
    double slowest = 0;
    for (int typed = 1; typed <= text.size(); ++typed)
        slowest = std::max(slowest, median(times[size_t(typed)]));
    state.counters["letter_ms"] = slowest;
    state.counters["back_ms"] = median(times[0]);
}

/// A page further: every row of the frame is a new one.
template <typename Side> double pageTime(Side &side)
{
    QScrollBar *bar = side.view.verticalScrollBar();
    const int next = bar->value() + bar->pageStep();
    return side.paint.timeOf([&] { bar->setValue(next < bar->maximum() ? next : 0); });
}

} // namespace zel::bench
