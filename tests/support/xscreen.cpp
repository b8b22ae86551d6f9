#include "support/xscreen.h"

#include <poll.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <cstdlib>

namespace zeltest {
namespace {

template <typename T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T> Reply<T> owned(T *reply)
{
    return Reply<T>(reply, &std::free);
}

std::uint32_t atom(xcb_connection_t *c, const std::string &name)
{
    const auto cookie = xcb_intern_atom(c, 0, std::uint16_t(name.size()), name.c_str());
    const auto reply = owned(xcb_intern_atom_reply(c, cookie, nullptr));
    return reply ? reply->atom : 0;
}

} // namespace

XScreen::XScreen() : m_connection(xcb_connect(nullptr, nullptr))
{
    if (!isConnected())
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_netWmName = atom(m_connection, "_NET_WM_NAME");
    m_netWmPid = atom(m_connection, "_NET_WM_PID");
    m_utf8 = atom(m_connection, "UTF8_STRING");
    xcb_get_extension_data(m_connection, &xcb_damage_id);
    owned(
        xcb_damage_query_version_reply(m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
}

XScreen::~XScreen()
{
    xcb_disconnect(m_connection);
}

bool XScreen::isConnected() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

bool XScreen::waitForEvent(std::chrono::steady_clock::time_point deadline)
{
    using namespace std::chrono;
    xcb_flush(m_connection);
    for (;;) {
        bool any = false;
        while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
            any = true;
            std::free(event);
        }
        if (any)
            return true;
        const auto left = duration_cast<milliseconds>(deadline - steady_clock::now()).count();
        pollfd fd = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
        if (left <= 0 || !isConnected() || ::poll(&fd, 1, int(left)) <= 0)
            return false;
    }
}

void XScreen::watchTree(Window window)
{
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
}

std::string XScreen::titleOf(Window window)
{
    const auto cookie = xcb_get_property(m_connection, 0, window, m_netWmName, m_utf8, 0, 1024);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    const auto *text = static_cast<const char *>(xcb_get_property_value(reply.get()));
    return {text, std::size_t(xcb_get_property_value_length(reply.get()))};
}

std::uint32_t XScreen::processOf(Window window)
{
    const auto cookie = xcb_get_property(m_connection, 0, window, m_netWmPid, XCB_ATOM_CARDINAL, 0, 1);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(std::uint32_t))
        return 0;
    return *static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
}

void XScreen::collect(Window window, const Match &match, std::vector<Window> &found)
{
    watchTree(window);
    if (window != m_root) {
        const auto cookie = xcb_get_window_attributes(m_connection, window);
        const auto attributes = owned(xcb_get_window_attributes_reply(m_connection, cookie, nullptr));
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE && match(window))
            found.push_back(window);
    }
    const auto tree =
        owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
    if (!tree)
        return;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
        collect(children[i], match, found);
}

std::vector<XScreen::Window> XScreen::viewable(const std::string &title)
{
    std::vector<Window> found;
    collect(
        m_root, [&](Window window) { return titleOf(window) == title; }, found);
    return found;
}

XScreen::Window XScreen::waitFor(const Match &match, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        std::vector<Window> found;
        collect(m_root, match, found);
        if (!found.empty())
            return found.front();
        if (!waitForEvent(deadline))
            return 0;
    }
}

XScreen::Window XScreen::waitForTitle(const std::string &title, std::chrono::milliseconds limit)
{
    return waitFor([&](Window window) { return titleOf(window) == title; }, limit);
}

XScreen::Window XScreen::waitForProcess(std::uint32_t pid, std::chrono::milliseconds limit)
{
    return waitFor([&](Window window) { return processOf(window) == pid; }, limit);
}

bool XScreen::waitUntilGone(const std::string &title, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!viewable(title).empty()) {
        if (!waitForEvent(deadline))
            return false;
    }
    return true;
}

bool XScreen::waitUntilPainted(
    Window window, std::chrono::milliseconds quiet, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    const xcb_damage_damage_t damage = xcb_generate_id(m_connection);
    xcb_damage_create(m_connection, damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    bool silent = false;
    while (!silent && std::chrono::steady_clock::now() < deadline)
        silent = !waitForEvent(std::chrono::steady_clock::now() + quiet);
    xcb_damage_destroy(m_connection, damage);
    return silent;
}

bool XScreen::waitUntilShown(
    Window window, const std::function<bool()> &isShown, std::chrono::milliseconds limit)
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    const xcb_damage_damage_t damage = xcb_generate_id(m_connection);
    xcb_damage_create(m_connection, damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    bool shown = isShown();
    while (!shown && waitForEvent(deadline))
        shown = isShown();
    xcb_damage_destroy(m_connection, damage);
    return shown;
}

XScreen::Rect XScreen::geometry(Window window)
{
    const auto size =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    const auto cookie = xcb_translate_coordinates(m_connection, window, m_root, 0, 0);
    const auto place = owned(xcb_translate_coordinates_reply(m_connection, cookie, nullptr));
    if (!size || !place)
        return {};
    return {place->dst_x, place->dst_y, size->width, size->height};
}

XScreen::Pixels XScreen::grab(Window window)
{
    const Rect rect = geometry(window);
    return grab(window, {0, 0, rect.width, rect.height});
}

XScreen::Pixels XScreen::grab(Window window, const Rect &rect)
{
    const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, std::int16_t(rect.x),
        std::int16_t(rect.y), std::uint16_t(rect.width), std::uint16_t(rect.height), ~0U);
    const auto image = owned(xcb_get_image_reply(m_connection, cookie, nullptr));
    Pixels pixels;
    if (!image || image->depth < 24)
        return pixels;
    const auto *data = reinterpret_cast<const std::uint32_t *>(xcb_get_image_data(image.get()));
    const std::size_t count = std::size_t(rect.width) * std::size_t(rect.height);
    if (std::size_t(xcb_get_image_data_length(image.get())) < count * sizeof(std::uint32_t))
        return pixels;
    pixels = {rect.width, rect.height, std::vector<std::uint32_t>(data, data + count)};
    for (std::uint32_t &pixel : pixels.argb)
        pixel |= 0xff000000U;
    return pixels;
}

} // namespace zeltest
