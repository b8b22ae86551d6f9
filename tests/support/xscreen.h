#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace zeltest {

/// A look at the X screen of $DISPLAY from outside the program under test. Waits for X events, never by
/// polling.
class XScreen
{
public:
    using Window = std::uint32_t; ///< 0: none

    XScreen();
    ~XScreen();
    bool isConnected() const;

    /// The viewable window with this title (_NET_WM_NAME), waiting for it; 0 when the time is over.
    Window waitForTitle(const std::string &title, std::chrono::milliseconds limit);
    /// The viewable window that this process put its number on (_NET_WM_PID), waiting for it.
    Window waitForProcess(std::uint32_t pid, std::chrono::milliseconds limit);
    /// Until no viewable window has this title; false when the time is over.
    bool waitUntilGone(const std::string &title, std::chrono::milliseconds limit);
    /// Until nothing was painted in the window for `quiet` (XDamage); false when the limit is over first.
    bool waitUntilPainted(Window window, std::chrono::milliseconds quiet, std::chrono::milliseconds limit);
    /// Until this holds; asked at once and after everything that is painted in the window. False when the
    /// limit is over first.
    bool waitUntilShown(Window window, const std::function<bool()> &isShown, std::chrono::milliseconds limit);

    struct Rect
    {
        int x = 0, y = 0, width = 0, height = 0;
    };
    Rect geometry(Window window); ///< on the screen

    struct Pixels
    {
        int width = 0;
        int height = 0;
        std::vector<std::uint32_t> argb; ///< 0xffRRGGBB, row by row
    };
    Pixels grab(Window window);                   ///< empty when it cannot be read
    Pixels grab(Window window, const Rect &part); ///< in the window's own coordinates
    std::vector<Window> viewable(const std::string &title);

private:
    using Match = std::function<bool(Window)>;
    Window waitFor(const Match &match, std::chrono::milliseconds limit);
    bool waitForEvent(std::chrono::steady_clock::time_point deadline);
    void watchTree(Window window);
    void collect(Window window, const Match &match, std::vector<Window> &found);
    std::string titleOf(Window window);
    std::uint32_t processOf(Window window);

    xcb_connection_t *m_connection;
    Window m_root = 0;
    std::uint32_t m_netWmName = 0;
    std::uint32_t m_netWmPid = 0;
    std::uint32_t m_utf8 = 0;
};

} // namespace zeltest
