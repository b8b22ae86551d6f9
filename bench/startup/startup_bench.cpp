// Whole-process figures of the box beside a bare Qt main window, in one run on one X screen:
// exec to mapped window (warm, median), proportional resident memory, wake-ups while idle, forwarded second
// start.
//   startup_bench [--rounds N] [--idle SECONDS] [--records N]
// Run it through tests/support/private-home.sh (see README), so that it neither sees nor touches the user's
// files.

#include "measuredprocess.h"
#include "startrounds.h"
#include "support/xscreen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

struct Settings
{
    int rounds = 21;
    int idleSeconds = 30;
    int records = 1000;
};

// Wake-ups of a started and settled program, by the voluntary context switches of all its threads.
bool measureIdle(zeltest::XScreen &screen, const Program &program, int seconds)
{
    MeasuredProcess process({program.path});
    const auto window = screen.waitForTitle(program.title, 30s);
    if (window == 0)
        return false;
    screen.waitUntilPainted(window, 3000ms, 30s);
    const MeasuredProcess::Threads before = MeasuredProcess::threadsOf(process.pid());
    ::poll(nullptr, 0, seconds * 1000); // the interval is what is measured
    std::printf("%-12s wake-ups in %d s:", program.title.c_str(), seconds);
    long sum = 0;
    for (const auto &[thread, count] : MeasuredProcess::wakeUpsSince(process.pid(), before)) {
        std::printf(" %s %ld,", thread.c_str(), count);
        sum += count;
    }
    std::printf(" %ld in all\n", sum);
    return true;
}

bool measureForward(zeltest::XScreen &screen, const Program &box, int rounds)
{
    MeasuredProcess first({box.path});
    const auto window = screen.waitForTitle(box.title, 30s);
    if (window == 0)
        return false;
    screen.waitUntilPainted(window, 1000ms, 20s);
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        MeasuredProcess second({box.path, "/options="});
        if (second.wait() != 0)
            return false;
        times.push_back(second.sinceExec().count());
    }
    std::printf("forwarded second start: median %.1f ms, worst %.1f ms\n", median(times),
        *std::max_element(times.begin(), times.end()));
    return true;
}

Settings parse(int argc, char **argv)
{
    Settings settings;
    for (int i = 1; i + 1 < argc; i += 2) {
        const int value = std::atoi(argv[i + 1]);
        if (std::strcmp(argv[i], "--rounds") == 0)
            settings.rounds = std::max(1, value);
        else if (std::strcmp(argv[i], "--idle") == 0)
            settings.idleSeconds = value;
        else if (std::strcmp(argv[i], "--records") == 0)
            settings.records = value;
    }
    return settings;
}

} // namespace

int main(int argc, char **argv)
{
    const Settings settings = parse(argc, argv);
    zeltest::XScreen screen;
    if (!screen.isConnected()) {
        std::fputs("startup_bench: no X display\n", stderr);
        return 1;
    }
    const std::filesystem::path build =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
    writeRecentList(settings.records);
    Program bare{build / "bench/bare_window", "Bare window"};
    Program box{build / "bin/zelbox", "ZEL Box", true};

    if (!startTurnByTurn(screen, bare, box, settings.rounds))
        return 1;
    for (const Program *program : {&bare, &box})
        std::printf("%-12s exec to mapped: median %.1f ms, best %.1f ms; PSS %.1f MB\n",
            program->title.c_str(), median(program->mapped),
            *std::min_element(program->mapped.begin(), program->mapped.end()), median(program->pss));
    std::printf("box / bare: start %.2f, memory %.2f\n", median(box.mapped) / median(bare.mapped),
        median(box.pss) / median(bare.pss));
    std::printf(
        "ZEL Box      exec to rows that can be read: median %.1f ms, best %.1f ms; %.2f of the bare window\n",
        median(box.rows), *std::min_element(box.rows.begin(), box.rows.end()),
        median(box.rows) / median(bare.mapped));
    const bool rest =
        measureForward(screen, box, settings.rounds) && measureIdle(screen, box, settings.idleSeconds);
    return rest ? 0 : 1;
}
