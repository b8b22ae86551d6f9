// Whole-process figures of the box beside a bare Qt main window, in one run on one X screen:
// exec to mapped window (warm, median), proportional resident memory, wake-ups while idle, forwarded second
// start.
//   startup_bench [--rounds N] [--idle SECONDS] [--records N]
// Run it through tests/support/private-home.sh (see README), so that it neither sees nor touches the user's
// files.

#include "measuredprocess.h"
#include "support/xscreen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
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

struct Program
{
    std::string path;
    std::string title;
    std::vector<double> mapped;
    std::vector<double> pss;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

// A desktop's list with real files, so that nothing of the box's work is spared.
void writeRecentList(int records)
{
    const std::filesystem::path home = std::getenv("HOME");
    const std::filesystem::path data = std::getenv("XDG_DATA_HOME");
    std::filesystem::create_directories(data);
    std::filesystem::create_directories(home / "Documents");
    std::ofstream list(data / "recently-used.xbel");
    list << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\" "
            "xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\" "
            "xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\">\n";
    const char *suffixes[] = {"odt", "pdf", "ods", "png", "txt"};
    for (int i = 0; i < records; ++i) {
        const std::string name = "Document " + std::to_string(i) + "." + suffixes[i % 5];
        std::ofstream(home / "Documents" / name) << i;
        char time[40];
        std::snprintf(
            time, sizeof time, "2026-%02d-%02dT%02d:%02d:00Z", 1 + i % 10, 1 + i % 28, i % 24, i % 60);
        list << "<bookmark href=\"file://" << (home / "Documents").string() << "/Document%20" << i << "."
             << suffixes[i % 5] << "\" added=\"" << time << "\" modified=\"" << time << "\" visited=\""
             << time
             << "\"><info><metadata owner=\"http://freedesktop.org\"><mime:mime-type "
                "type=\"application/octet-stream\"/></metadata></info></bookmark>\n";
    }
    list << "</xbel>\n";
}

bool startOnce(zeltest::XScreen &screen, Program &program, bool measureMemory)
{
    MeasuredProcess process({program.path});
    const auto window = screen.waitForTitle(program.title, 30s);
    program.mapped.push_back(process.sinceExec().count());
    if (window == 0)
        return false;
    if (measureMemory) {
        screen.waitUntilPainted(window, 1500ms, 20s);
        program.pss.push_back(double(process.pssKilobytes()) / 1024);
    }
    return true;
}

// Wake-ups of a started and settled program, by the voluntary context switches of all its threads.
bool measureIdle(zeltest::XScreen &screen, const Program &program, int seconds)
{
    MeasuredProcess process({program.path});
    const auto window = screen.waitForTitle(program.title, 30s);
    if (window == 0)
        return false;
    screen.waitUntilPainted(window, 3000ms, 30s);
    const auto before = process.threads();
    ::poll(nullptr, 0, seconds * 1000); // the interval is what is measured
    std::printf("%-12s wake-ups in %d s:", program.title.c_str(), seconds);
    long sum = 0;
    for (const auto &[id, thread] : process.threads()) {
        const auto earlier = before.find(id);
        const long wakeUps = thread.sleeps - (earlier == before.end() ? 0 : earlier->second.sleeps);
        sum += wakeUps;
        if (wakeUps > 0)
            std::printf(" %s %ld,", thread.name.c_str(), wakeUps);
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
    Program bare{build / "bench/bare_window", "Bare window", {}, {}};
    Program box{build / "bin/zelbox", "ZEL Box", {}, {}};

    // One unmeasured start each: caches warm, the box's database filled.
    if (!startOnce(screen, bare, true) || !startOnce(screen, box, true))
        return 1;
    bare.mapped.clear();
    box.mapped.clear();
    bare.pss.clear();
    box.pss.clear();
    const int memoryRounds = std::min(settings.rounds, 5);
    for (int round = 0; round < settings.rounds; ++round) {
        for (Program *program : {&bare, &box}) {
            if (!startOnce(screen, *program, round < memoryRounds))
                return 1;
        }
    }
    for (const Program *program : {&bare, &box})
        std::printf("%-12s exec to mapped: median %.1f ms, best %.1f ms; PSS %.1f MB\n",
            program->title.c_str(), median(program->mapped),
            *std::min_element(program->mapped.begin(), program->mapped.end()), median(program->pss));
    std::printf("box / bare: start %.2f, memory %.2f\n", median(box.mapped) / median(bare.mapped),
        median(box.pss) / median(bare.pss));
    const bool rest =
        measureForward(screen, box, settings.rounds) && measureIdle(screen, box, settings.idleSeconds);
    return rest ? 0 : 1;
}
