// The module behind layershell.h: zwlr_layer_shell_v1 through libwayland.
//
// The library that Qt programs use for this (LayerShellQt 5) makes every window of its process a layer
// surface; here it is one window beside ordinary ones.

#include "mini/layershell/layershell.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>

#include <wayland-client.h>

// Generated. The header first: it says that the constants of the second one, which is C, are no file's own.
#include "wlr-layer-shell-client-header.h"
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
#include "wlr-layer-shell-private-code.h"
#pragma GCC diagnostic pop

#include <algorithm>
#include <cstring>

namespace zel::layershell {
namespace {

constexpr std::uint32_t OnDemandSince = 4; // keyboard focus by a click, as any window

enum Layer : std::uint32_t { LayerTop = 2 };
enum AnchorBit : std::uint32_t { AnchorTop = 1, AnchorBottom = 2, AnchorLeft = 4, AnchorRight = 8 };
enum Keyboard : std::uint32_t { KeyboardNone = 0, KeyboardExclusive = 1, KeyboardOnDemand = 2 };

struct Global
{
    zwlr_layer_shell_v1 *shell = nullptr;
    std::uint32_t version = 0;
};

wl_display *display()
{
    return static_cast<wl_display *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("wl_display"));
}

void onGlobal(
    void *data, wl_registry *registry, std::uint32_t name, const char *interface, std::uint32_t version)
{
    auto *found = static_cast<Global *>(data);
    if (std::strcmp(interface, zwlr_layer_shell_v1_interface.name) != 0 || found->shell)
        return;
    found->version = std::min(version, std::uint32_t(zwlr_layer_shell_v1_interface.version));
    found->shell = static_cast<zwlr_layer_shell_v1 *>(
        wl_registry_bind(registry, name, &zwlr_layer_shell_v1_interface, found->version));
}

void onGlobalRemoved(void *, wl_registry *, std::uint32_t) { }

// One question to the compositor, on a queue of its own so that none of Qt's events is handled meanwhile.
Global findShell()
{
    constexpr static wl_registry_listener Listener = {onGlobal, onGlobalRemoved};
    Global found;
    wl_display *const connection = display();
    if (!connection)
        return found;
    wl_event_queue *queue = wl_display_create_queue(connection);
    auto *wrapped = static_cast<wl_display *>(wl_proxy_create_wrapper(connection));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapped), queue);
    wl_registry *registry = wl_display_get_registry(wrapped);
    wl_proxy_wrapper_destroy(wrapped);
    wl_registry_add_listener(registry, &Listener, &found);
    wl_display_roundtrip_queue(connection, queue);
    wl_registry_destroy(registry);
    if (found.shell) // what it makes tells its events where Qt looks for them
        wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(found.shell), nullptr);
    wl_event_queue_destroy(queue);
    return found;
}

const Global &shell()
{
    static const Global global = findShell();
    return global;
}

std::uint32_t bitsOf(Qt::Edges edges)
{
    return (edges.testFlag(Qt::TopEdge) ? AnchorTop : 0U)
        | (edges.testFlag(Qt::BottomEdge) ? AnchorBottom : 0U)
        | (edges.testFlag(Qt::LeftEdge) ? AnchorLeft : 0U)
        | (edges.testFlag(Qt::RightEdge) ? AnchorRight : 0U);
}

class WlrSurface final : public Surface
{
public:
    ~WlrSurface() override { detach(); }

    bool attach(
        QWindow *window, QScreen *screen, const zel::mini::Anchored &where, const QSize &size) override;
    void place(const zel::mini::Anchored &where, const QSize &size) override;
    void detach() override;

private:
    static void onConfigure(
        void *data, zwlr_layer_surface_v1 *, std::uint32_t serial, std::uint32_t, std::uint32_t);
    static void closed(void *data, zwlr_layer_surface_v1 *);

    wl_surface *m_surface = nullptr; // Qt's
    zwlr_layer_surface_v1 *m_layer = nullptr;
    bool m_configured = false;
};

bool WlrSurface::attach(QWindow *window, QScreen *screen, const zel::mini::Anchored &where, const QSize &size)
{
    constexpr static zwlr_layer_surface_v1_listener Listener = {onConfigure, closed};
    detach();
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    m_surface = static_cast<wl_surface *>(native->nativeResourceForWindow("surface", window));
    if (!m_surface)
        return false;
    auto *output =
        screen ? static_cast<wl_output *>(native->nativeResourceForScreen("output", screen)) : nullptr;
    m_layer =
        zwlr_layer_shell_v1_get_layer_surface(shell().shell, m_surface, output, LayerTop, "zelbox-mini");
    zwlr_layer_surface_v1_add_listener(m_layer, &Listener, this);
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_layer, shell().version >= OnDemandSince ? KeyboardOnDemand : KeyboardExclusive);
    place(where, size);
    // A picture that comes before the compositor's first word would end the connection, and Qt paints as soon
    // as this returns.
    while (m_layer && !m_configured && wl_display_roundtrip(display()) >= 0) { }
    return m_configured;
}

void WlrSurface::place(const zel::mini::Anchored &where, const QSize &size)
{
    if (!m_layer)
        return;
    const QMargins &away = where.margins;
    zwlr_layer_surface_v1_set_anchor(m_layer, bitsOf(where.anchors));
    zwlr_layer_surface_v1_set_margin(m_layer, away.top(), away.right(), away.bottom(), away.left());
    zwlr_layer_surface_v1_set_size(m_layer, std::uint32_t(size.width()), std::uint32_t(size.height()));
    wl_surface_commit(m_surface);
}

void WlrSurface::detach()
{
    if (m_layer)
        zwlr_layer_surface_v1_destroy(m_layer);
    m_layer = nullptr;
    m_surface = nullptr;
    m_configured = false;
}

void WlrSurface::onConfigure(
    void *data, zwlr_layer_surface_v1 *layer, std::uint32_t serial, std::uint32_t, std::uint32_t)
{
    zwlr_layer_surface_v1_ack_configure(layer, serial);
    static_cast<WlrSurface *>(data)->m_configured = true;
}

void WlrSurface::closed(void *data, zwlr_layer_surface_v1 *)
{
    auto *self = static_cast<WlrSurface *>(data);
    self->detach();
    if (self->onClosed)
        self->onClosed();
}

} // namespace
} // namespace zel::layershell

extern "C" Q_DECL_EXPORT zel::layershell::Surface *ZEL_LAYERSHELL_SYMBOL()
{
    return zel::layershell::shell().shell ? new zel::layershell::WlrSurface : nullptr;
}
