#pragma once

#include "mini/minidock.h"

#include <QSize>
#include <functional>
#include <memory>

class QScreen;
class QWidget;
class QWindow;

/// Places one window of the box at an edge of the screen where the compositor lets windows do so (Wayland's
/// layer shell, zwlr_layer_shell_v1). The code is a module, loaded on the first use on Wayland. GUI thread.
namespace zel::layershell {

/// The layer surface of one window.
class Surface
{
public:
    virtual ~Surface() = default;

    /// Right after the window was shown, before it has painted for the first time. False when the compositor
    /// does not do it; nothing is on the screen then.
    virtual bool attach(
        QWindow *window, QScreen *screen, const zel::mini::Anchored &where, const QSize &size) = 0;
    virtual void place(const zel::mini::Anchored &where, const QSize &size) = 0;
    /// Before the window is hidden.
    virtual void detach() = 0;

    std::function<void()> onClosed; ///< the compositor took it away, with its screen for example
};

/// A surface for a window that has not been made yet: gives the window the flags for that. Null where this
/// session has no layer shell.
std::unique_ptr<Surface> surfaceFor(QWidget *window);

/// The module's one symbol: a function `Surface *()`, null without a layer shell.
#define ZEL_LAYERSHELL_SYMBOL zelLayerShellSurface

} // namespace zel::layershell
