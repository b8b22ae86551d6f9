// The whole shell in figures, beside other programs in the same run on one X screen: start, page switches,
// memory, and what it does while it is hidden.
//   zelbench_shell [--quick] [--rounds N] [--hidden SECONDS] [--records N]
// Run it through tests/support/private-home.sh with ZEL_TEST_DISPLAY=1 ZEL_TEST_WM=none: a window manager
// would give the focus to a text field, whose caret never rests. Ends with 1 when a step failed or a figure
// is above its limit;
// --quick (one round, a debug build will do) prints the limits, but does not judge.

#include "figuretable.h"
#include "hiddenbox.h"
#include "startrounds.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sstream>
#include <unistd.h>

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

constexpr double MostByBareWindow = 1.6;
constexpr double MostForPage = 50; // ms
constexpr double MostByFileManager = 1.0;

struct Settings
{
    bool quick = false;
    int rounds = 21;
    int hiddenSeconds = 30;
    int records = 1000;
};

Settings parse(int argc, char **argv)
{
    Settings settings;
    for (int i = 1; i < argc; ++i) {
        const auto number = [&] { return i + 1 < argc ? std::max(1, std::atoi(argv[++i])) : 1; };
        if (std::strcmp(argv[i], "--quick") == 0)
            settings = {true, 1, 2, 100};
        else if (std::strcmp(argv[i], "--rounds") == 0)
            settings.rounds = number();
        else if (std::strcmp(argv[i], "--hidden") == 0)
            settings.hiddenSeconds = number();
        else if (std::strcmp(argv[i], "--records") == 0)
            settings.records = number();
    }
    return settings;
}

bool measureStarts(zeltest::XScreen &screen, const fs::path &build, const Settings &settings,
    FigureTable &table, double &boxPss)
{
    Program bare{build / "bench/bare_window", "Bare window"};
    Program box{build / "bin/zelbox", "ZEL Box", true};
    if (!startTurnByTurn(screen, bare, box, settings.rounds))
        return false;
    table.section("exec to mapped window, median of " + std::to_string(settings.rounds));
    table.figure("bare window", median(bare.mapped), "ms");
    table.figure("box", median(box.mapped), "ms");
    table.limited("box / bare window", median(box.mapped) / median(bare.mapped), "", MostByBareWindow);
    table.figure("box, exec to rows that can be read", median(box.rows), "ms");
    table.figure("its rows / bare window", median(box.rows) / median(bare.mapped), "");
    boxPss = median(box.pss);
    return true;
}

// Lines of zelbench_pages: name, first visit (negative: it was there at the start), median and worst later
// visit.
bool measurePages(const fs::path &build, const Settings &settings, FigureTable &table)
{
    table.section("page chosen to painted");
    const std::string command =
        "'" + (build / "bin/zelbench_pages").string() + "' " + std::to_string(settings.rounds);
    const auto close = [&](FILE *pipe) { return ::pclose(pipe); };
    std::unique_ptr<FILE, decltype(close)> lines(::popen(command.c_str(), "r"), close);
    char line[512];
    int pages = 0;
    while (lines && std::fgets(line, sizeof line, lines.get())) {
        std::istringstream fields(line);
        std::string name;
        double first = 0, middle = 0, worst = 0;
        if (!(std::getline(fields, name, '\t') && fields >> first >> middle >> worst))
            return false;
        if (first >= 0)
            table.limited(name + ", first visit", first, "ms", MostForPage);
        table.figure(name + ", later, median", middle, "ms");
        table.limited(name + ", later, worst", worst, "ms", MostForPage);
        ++pages;
    }
    return lines && ::pclose(lines.release()) == 0 && pages > 0;
}

std::string onPath(const std::string &program)
{
    std::istringstream folders(std::getenv("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (::access((folder + "/" + program).c_str(), X_OK) == 0)
            return folder + "/" + program;
    }
    return {};
}

bool measureMemory(zeltest::XScreen &screen, double boxPss, const Settings &settings, FigureTable &table)
{
    table.section("memory of its own and its share of what others use as well (PSS), after start");
    table.figure("box", boxPss, "MB");
    for (const std::string manager : {"dolphin", "pcmanfm-qt"}) {
        const std::string path = onPath(manager);
        if (path.empty()) {
            table.note(manager, "not installed, left out");
            continue;
        }
        std::vector<double> pss;
        for (int round = 0; round < std::min(settings.rounds, 5); ++round) {
            MeasuredProcess process({path}, MeasuredProcess::Output::Dropped);
            const auto window = screen.waitForProcess(std::uint32_t(process.pid()), 30s);
            if (window == 0)
                return false;
            screen.waitUntilPainted(window, 1500ms, 20s);
            pss.push_back(double(process.pssKilobytes()) / 1024);
        }
        table.figure(manager, median(pss), "MB");
        table.limited("box / " + manager, boxPss / median(pss), "", MostByFileManager);
    }
    return true;
}

void printWakeUps(const std::string &who, const std::map<std::string, long> &wakeUps, FigureTable &table)
{
    double sum = 0;
    for (const auto &[thread, count] : wakeUps) {
        table.note(who + ", thread " + thread, std::to_string(count));
        sum += double(count);
    }
    table.limited(who, sum, "", 0);
}

bool measureHidden(
    zeltest::XScreen &screen, const fs::path &build, const Settings &settings, FigureTable &table)
{
    HiddenFigures figures;
    if (!watchHiddenBox(screen, build / "bin", settings.hiddenSeconds, figures))
        return false;
    table.section("hidden in the background, wake-ups in " + std::to_string(settings.hiddenSeconds) + " s");
    printWakeUps("box", figures.boxWakeUps, table);
    printWakeUps("its cloud service", figures.serviceWakeUps, table);
    table.section("memory (PSS) while hidden");
    table.figure("box, before", figures.shownMegabytes, "MB");
    table.limited("box, hidden", figures.hiddenMegabytes, "MB", figures.shownMegabytes);
    table.figure("its cloud service", figures.serviceMegabytes, "MB");
    return true;
}

// A desktop has a session bus, and programs do more once they find one.
void ensureSessionBus(char **argv)
{
    if (std::getenv("DBUS_SESSION_BUS_ADDRESS"))
        return;
    char runner[] = "dbus-run-session";
    char separator[] = "--";
    std::vector<char *> command{runner, separator};
    for (; *argv; ++argv)
        command.push_back(*argv);
    command.push_back(nullptr);
    ::execvp(runner, command.data());
    std::fputs("zelbench_shell: no dbus-run-session, measured without a session bus\n", stderr);
}

} // namespace

int main(int argc, char **argv)
{
    ensureSessionBus(argv);
    const Settings settings = parse(argc, argv);
    zeltest::XScreen screen;
    if (!screen.isConnected()) {
        std::fputs("zelbench_shell: no X display\n", stderr);
        return 1;
    }
    const fs::path build = fs::read_symlink("/proc/self/exe").parent_path().parent_path();
    writeRecentList(settings.records);
    FigureTable table("the shell, " + std::to_string(settings.records) + " recent files");
    double boxPss = 0;
    if (!measureStarts(screen, build, settings, table, boxPss) || !measurePages(build, settings, table)
        || !measureMemory(screen, boxPss, settings, table)
        || !measureHidden(screen, build, settings, table)) {
        std::fputs("zelbench_shell: the last step failed\n", stderr);
        return 1;
    }
    return settings.quick || table.allWithin() ? 0 : 1;
}
