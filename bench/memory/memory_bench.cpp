// What the box gives back when it goes into the background: the real box with 5,000 recent documents is
// started, scrolled from top to bottom and back, and hidden as by the tray; its memory is told at each step.
//   zelbench_memory [records]
// Run it through tests/support/private-home.sh, so that it neither sees nor touches the user's files.

#include "measuredprocess.h"
#include "startrounds.h"
#include "support/xscreen.h"

#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <poll.h>

using namespace std::chrono_literals;

namespace {

const std::string Title = "ZEL Box";

struct Memory
{
    long rss = -1; // kB
    long pss = -1;
    long dirty = -1; // of its own, written to
};

Memory memoryOf(pid_t process)
{
    Memory memory;
    std::ifstream lines("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string line; std::getline(lines, line);) {
        std::sscanf(line.c_str(), "Rss: %ld", &memory.rss);
        std::sscanf(line.c_str(), "Pss: %ld", &memory.pss);
        std::sscanf(line.c_str(), "Private_Dirty: %ld", &memory.dirty);
    }
    return memory;
}

// Until it has not changed for a second: what is given back comes in several steps on several threads.
Memory settledMemoryOf(pid_t process)
{
    Memory last = memoryOf(process);
    for (int quiet = 0, rounds = 0; quiet < 5 && rounds < 100; ++rounds) {
        ::poll(nullptr, 0, 200);
        const Memory now = memoryOf(process);
        quiet = now.pss == last.pss ? quiet + 1 : 0;
        last = now;
    }
    return last;
}

void tell(const char *when, const Memory &memory)
{
    std::printf("%-22s RSS %6.1f MB   PSS %6.1f MB   own, written %6.1f MB\n", when,
        double(memory.rss) / 1024, double(memory.pss) / 1024, double(memory.dirty) / 1024);
    std::fflush(stdout);
}

/// Turns the wheel over a window, as an X client may.
class Wheel
{
public:
    explicit Wheel(xcb_window_t window) : m_window(window) { }
    ~Wheel() { xcb_disconnect(m_connection); }
    Wheel(const Wheel &) = delete;
    Wheel &operator=(const Wheel &) = delete;

    void turn(bool down, int notches, int x, int y)
    {
        for (int i = 0; i < notches; ++i) {
            send(XCB_BUTTON_PRESS, down, x, y);
            send(XCB_BUTTON_RELEASE, down, x, y);
        }
        xcb_flush(m_connection);
    }

private:
    void send(std::uint8_t type, bool down, int x, int y)
    {
        xcb_button_press_event_t event = {};
        event.response_type = type;
        event.detail = down ? XCB_BUTTON_INDEX_5 : XCB_BUTTON_INDEX_4;
        event.root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        event.event = m_window;
        event.event_x = event.root_x = std::int16_t(x);
        event.event_y = event.root_y = std::int16_t(y);
        event.same_screen = 1;
        xcb_send_event(m_connection, 0, m_window, XCB_EVENT_MASK_NO_EVENT, // to whoever made the window
            reinterpret_cast<const char *>(&event));
    }

    xcb_connection_t *m_connection = xcb_connect(nullptr, nullptr);
    xcb_window_t m_window;
};

// A screenful at a time, so that every row is painted, until nothing moves any more. False: nothing ever did.
bool scrollToEnd(zeltest::XScreen &screen, xcb_window_t window, bool down)
{
    constexpr int Screenful = 5; // notches
    Wheel wheel(window);
    const auto area = screen.geometry(window);
    const auto first = screen.grab(window).argb;
    for (auto before = first;;) {
        wheel.turn(down, Screenful, area.width / 2, area.height * 2 / 3);
        screen.waitUntilPainted(window, 40ms, 1s);
        auto now = screen.grab(window).argb;
        if (now == before)
            return now != first;
        before = std::move(now);
    }
}

bool measure(const std::string &box, int records)
{
    ::setenv(
        "QT_XCB_NO_XI2", "1", 1); // the wheel's events then come in the form in which X lets others send them
    zeltest::XScreen screen;
    writeRecentList(records);
    { // fills the box's database, as on any day but the first
        MeasuredProcess first({box});
        screen.waitUntilPainted(screen.waitForTitle(Title, 30s), 2000ms, 30s);
    }
    MeasuredProcess process({box});
    const auto window = screen.waitForTitle(Title, 30s);
    if (window == 0 || !screen.waitUntilPainted(window, 2000ms, 30s))
        return false;
    tell("started", settledMemoryOf(process.pid()));
    if (!scrollToEnd(screen, window, true) || !scrollToEnd(screen, window, false))
        return false;
    const Memory scrolled = settledMemoryOf(process.pid());
    tell("scrolled", scrolled);
    MeasuredProcess({box, "/from=tray"}).wait(); // a command without a window hides the box
    if (!screen.waitUntilGone(Title, 10s))
        return false;
    const Memory hidden = settledMemoryOf(process.pid());
    tell("in the background", hidden);
    MeasuredProcess({box, "/show=main"}).wait();
    if (screen.waitForTitle(Title, 10s) == 0)
        return false;
    tell("shown again", settledMemoryOf(process.pid()));
    MeasuredProcess({box, "/action=exit"}).wait();
    return process.wait() == 0 && hidden.dirty < scrolled.dirty;
}

} // namespace

int main(int argc, char **argv)
{
    const char *build = std::getenv("ZEL_BUILD_DIR");
    const std::string box = (build ? std::string(build) : ".") + "/bin/zelbox";
    return measure(box, argc > 1 ? std::atoi(argv[1]) : 5000) ? 0 : 1;
}
