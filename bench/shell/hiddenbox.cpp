#include "hiddenbox.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <poll.h>

using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

constexpr char Title[] = "ZEL Box";
constexpr int RestMilliseconds = 2000; // without a wake-up
constexpr int MostRounds = 10;

// The service of this user, by program and runtime folder; 0 when none runs.
pid_t findService(const fs::path &program)
{
    const std::string ours = std::string("XDG_RUNTIME_DIR=") + std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    for (const auto &process : fs::directory_iterator("/proc")) {
        if (fs::read_symlink(process.path() / "exe", error) != program)
            continue;
        std::ifstream file(process.path() / "environ");
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        if (environment.find(ours) != std::string::npos)
            return pid_t(std::stol(process.path().filename().string()));
    }
    return 0;
}

// The interval is what is measured.
std::map<std::string, long> wakeUpsIn(pid_t process, int milliseconds)
{
    const MeasuredProcess::Threads before = MeasuredProcess::threadsOf(process);
    ::poll(nullptr, 0, milliseconds);
    return MeasuredProcess::wakeUpsSince(process, before);
}

} // namespace

bool watchHiddenBox(zeltest::XScreen &screen, const fs::path &bin, int seconds, HiddenFigures &figures)
{
    const std::string program = bin / "zelbox";
    MeasuredProcess box({program});
    const auto window = screen.waitForTitle(Title, 30s);
    if (window == 0)
        return false;
    screen.waitUntilPainted(window, 3s, 30s);
    figures.shownMegabytes = double(box.pssKilobytes()) / 1024;

    MeasuredProcess hide({program, "/from=tray"});
    if (hide.wait() != 0 || !screen.waitUntilGone(Title, 10s))
        return false;
    for (int round = 0; round < MostRounds && !wakeUpsIn(box.pid(), RestMilliseconds).empty(); ++round) { }

    const pid_t service = findService(fs::canonical(bin / "zelcloud"));
    const MeasuredProcess::Threads serviceBefore = MeasuredProcess::threadsOf(service);
    figures.boxWakeUps = wakeUpsIn(box.pid(), seconds * 1000);
    figures.serviceWakeUps = MeasuredProcess::wakeUpsSince(service, serviceBefore);
    figures.hiddenMegabytes = double(box.pssKilobytes()) / 1024;
    figures.serviceMegabytes = double(MeasuredProcess::pssKilobytesOf(service)) / 1024;

    MeasuredProcess leave({program, "/action=exit"});
    return leave.wait() == 0 && box.wait() == 0;
}
