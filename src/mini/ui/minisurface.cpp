#include "mini/ui/minisurface.h"

#include "base/logging.h"
#include "mini/layershell/layershell.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>

using namespace zel::mini;

namespace {

/// A window that knows and chooses where it is, as on X11.
class FreeSurface final : public MiniSurface
{
public:
    explicit FreeSurface(QWidget *window) : m_window(window) { }

    bool canPlace() const override { return true; }
    void place(Edge, const QRect &rect, QScreen *) override { m_window->setGeometry(rect); }

private:
    QWidget *m_window;
};

/// An ordinary Wayland window: neither knows nor chooses where it is.
class OrdinarySurface final : public MiniSurface
{
public:
    // Of one size, by which tiling compositors know a window that is to float.
    explicit OrdinarySurface(QWidget *window) { window->setFixedSize(window->size()); }

    bool canPlace() const override { return false; }
    void place(Edge, const QRect &, QScreen *) override { }
};

/// A layer surface: placed by its distance from the screen's edges.
class LayerSurface final : public MiniSurface
{
public:
    LayerSurface(QWidget *window, std::unique_ptr<zel::layershell::Surface> layer)
        : m_window(window), m_layer(std::move(layer))
    {
        // The compositor takes it away together with its screen; shown again, it goes to another one.
        m_layer->onClosed = [this] {
            QMetaObject::invokeMethod(
                m_window,
                [window = m_window] {
                    if (!window->isVisible())
                        return;
                    window->hide();
                    window->show();
                },
                Qt::QueuedConnection);
        };
    }

    bool canPlace() const override { return true; }
    bool canPopUp() const override { return false; } // Qt 5 cannot hang a popup on a layer surface
    // Where the pointer is, a Wayland window is told as seen from itself, and while it moves under the
    // pointer compositors disagree on what that is.
    bool canFollowPointer() const override { return false; }

    void place(Edge edge, const QRect &rect, QScreen *screen) override
    {
        if (!screen)
            return; // it has just gone; the window hears of that next
        m_where = anchored(edge, rect, screen->geometry());
        m_window->resize(rect.size());
        if (m_window->isVisible() && screen != m_screen) {
            m_screen = screen; // a surface stays on its screen
            m_window->hide();
            m_window->show();
            return;
        }
        m_screen = screen;
        m_layer->place(m_where, rect.size());
    }

    void shown() override
    {
        if (m_layer->attach(m_window->windowHandle(), m_screen, m_where, m_window->size()))
            return;
        qCWarning(lcApp, "the compositor does not show the mini window");
        m_window->hide();
    }

    void aboutToHide() override { m_layer->detach(); }

private:
    QWidget *m_window;
    std::unique_ptr<zel::layershell::Surface> m_layer;
    QPointer<QScreen> m_screen;
    Anchored m_where;
};

} // namespace

std::unique_ptr<MiniSurface> MiniSurface::make(QWidget *window)
{
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        return std::make_unique<FreeSurface>(window);
    if (auto layer = zel::layershell::surfaceFor(window))
        return std::make_unique<LayerSurface>(window, std::move(layer));
    return std::make_unique<OrdinarySurface>(window);
}
