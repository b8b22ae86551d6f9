#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Lets a frameless window be resized from its edges. GUI thread; a child of the window it serves.
/// The move itself is left to the window manager (QWindow::startSystemResize), which works on X11 and Wayland
/// and keeps snapping; where it refuses, nothing happens.
class WidgetResizeHelper : public QObject
{
    Q_OBJECT
public:
    /// `margin` is the width of the sensitive edge in device-independent pixels.
    explicit WidgetResizeHelper(QWidget *host, int margin = 5);

    /// Edges of `size` that `pos` (window coordinates) is near; corners give two. Empty inside.
    static Qt::Edges edgesAt(const QPoint &pos, const QSize &size, int margin);
    static Qt::CursorShape cursorFor(Qt::Edges edges);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void sigHostWidgetGeometryChanged(); ///< the host was moved or resized

private:
    Qt::Edges edgesUnder(const QPoint &globalPos) const;
    void showCursor(Qt::Edges edges);

    QWidget *m_host;
    int m_margin;
    bool m_cursorSet = false;
};

namespace zel {
/// Paints the one-pixel border of a frameless window along the edge of `widget`, which fills it; nothing when
/// the window is maximised or full screen. Call it last in a paintEvent.
void paintWindowBorder(QWidget *widget);
} // namespace zel
