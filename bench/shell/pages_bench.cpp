// How long the main window takes from the choice of a page until it is painted.
//   zelbench_pages [VISITS]
// Prints a line for each page: title, first visit (-1: it is there from the start), median and worst of the
// later ones, in ms.

#include "app/pagelist.h"
#include "app/zelboxapplication.h"
#include "app/zelboxcore.h"
#include "krt/krt.h"
#include "mainwindow/ui/zelboxmainwindow.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int StartQuietMs = 1000; // the list is loaded and painted after the window
constexpr int VisitQuietMs = 100;

/// Runs the event loop until the window has been painted, or has not been for a while.
class PaintWait final : public QObject
{
public:
    explicit PaintWait(QWidget *window) : m_window(window)
    {
        m_timer.setSingleShot(true);
        window->installEventFilter(this);
    }

    void untilQuiet(int milliseconds)
    {
        QEventLoop loop;
        m_quiet = milliseconds;
        const auto over = connect(&m_timer, &QTimer::timeout, &loop, &QEventLoop::quit);
        m_timer.start(milliseconds);
        loop.exec();
        disconnect(over);
        m_quiet = 0;
    }

    /// Milliseconds from the begin of `change` to the end of the painting that it leads to.
    template <typename Change> double timeOf(const Change &change)
    {
        QCoreApplication::sendPostedEvents();
        QEventLoop loop;
        m_painted = &loop;
        QTimer::singleShot(30'000, &loop, [] { qFatal("nothing was painted"); });
        QElapsedTimer timer;
        timer.start();
        change();
        loop.exec();
        QCoreApplication::sendPostedEvents(); // a layout that came late, and its painting
        return double(timer.nsecsElapsed()) / 1e6;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != m_window || event->type() != QEvent::UpdateRequest)
            return false;
        if (m_quiet > 0)
            m_timer.start(m_quiet);
        if (QEventLoop *loop = std::exchange(m_painted, nullptr))
            loop->quit(); // comes back when the event has been dealt with
        return false;
    }

private:
    QWidget *m_window;
    QTimer m_timer;
    QEventLoop *m_painted = nullptr;
    int m_quiet = 0;
};

void measure(ZelBoxMainWindow *window, int visits)
{
    PaintWait paint(window);
    paint.untilQuiet(StartQuietMs);
    const zel::PageList pages = zel::boxPages();
    QVector<double> first(pages.size(), -1);
    QVector<QVector<double>> later(pages.size());
    for (int visit = 0; visit <= visits; ++visit) {
        for (int step = 1; step <= pages.size(); ++step) {
            const int page = step % pages.size(); // the window opens with the first
            const double time = paint.timeOf([&] { window->selectPage(page); });
            if (visit == 0 && page != 0)
                first[page] = time;
            else
                later[page].append(time);
            paint.untilQuiet(VisitQuietMs);
        }
    }
    for (int page = 0; page < pages.size(); ++page) {
        QVector<double> times = later.at(page);
        std::sort(times.begin(), times.end());
        std::printf("%s\t%.2f\t%.2f\t%.2f\n", qPrintable(pages.at(page).title), first.at(page),
            times.at(times.size() / 2), times.constLast());
    }
}

} // namespace

int main(int argc, char **argv)
{
    const int visits = argc > 1 ? std::max(1, std::atoi(argv[1])) : 11;
    krt::init(
        QStringLiteral("Halvorn"), QStringLiteral("Office"), QStringLiteral("6.0"), QStringLiteral("zelbox"));
    {
        ZelBoxApplicationIndependentProcesses application(argc, argv);
        if (!application.start(QString()))
            return 1;
        QApplication::setCursorFlashTime(0); // a blinking caret would never be quiet
        QTimer::singleShot(0, &application, [visits] {
            measure(ZelBoxCore::instance()->mainWindow(), visits);
            QCoreApplication::quit();
        });
        QApplication::exec();
    }
    krt::clear();
    return 0;
}
