#include "widgets/windowframe.h"

#include "klitestyle.h"
#include "kskin.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <QWindow>

WidgetResizeHelper::WidgetResizeHelper(QWidget *host, int margin)
    : QObject(host), m_host(host), m_margin(KLiteStyle::dpiScaled(margin))
{
    m_host->installEventFilter(this);
}

Qt::Edges WidgetResizeHelper::edgesAt(const QPoint &pos, const QSize &size, int margin)
{
    if (!QRect(QPoint(), size).contains(pos))
        return {};
    // A corner reaches further along the edge than the edge is thick, or it could hardly be hit.
    const int reach = margin * 3;
    const bool nearLeft = pos.x() < margin;
    const bool nearRight = pos.x() >= size.width() - margin;
    const bool nearTop = pos.y() < margin;
    const bool nearBottom = pos.y() >= size.height() - margin;
    if (!nearLeft && !nearRight && !nearTop && !nearBottom)
        return {};
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, nearLeft || pos.x() < reach);
    edges.setFlag(Qt::RightEdge, nearRight || pos.x() >= size.width() - reach);
    edges.setFlag(Qt::TopEdge, nearTop || pos.y() < reach);
    edges.setFlag(Qt::BottomEdge, nearBottom || pos.y() >= size.height() - reach);
    return edges;
}

Qt::CursorShape WidgetResizeHelper::cursorFor(Qt::Edges edges)
{
    const bool horizontal = edges & (Qt::LeftEdge | Qt::RightEdge);
    const bool vertical = edges & (Qt::TopEdge | Qt::BottomEdge);
    if (horizontal && vertical) {
        const bool falling = edges.testFlag(Qt::LeftEdge) == edges.testFlag(Qt::TopEdge);
        return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    if (horizontal)
        return Qt::SizeHorCursor;
    return vertical ? Qt::SizeVerCursor : Qt::ArrowCursor;
}

Qt::Edges WidgetResizeHelper::edgesUnder(const QPoint &globalPos) const
{
    if (m_host->isMaximized() || m_host->isFullScreen())
        return {};
    return edgesAt(m_host->mapFromGlobal(globalPos), m_host->size(), m_margin);
}

void WidgetResizeHelper::showCursor(Qt::Edges edges)
{
    QWindow *window = m_host->windowHandle();
    if (!window || (!edges && !m_cursorSet))
        return;
    m_cursorSet = bool(edges);
    if (edges)
        window->setCursor(cursorFor(edges));
    else
        window->unsetCursor();
}

bool WidgetResizeHelper::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WinIdChange:
        // The edges belong to the children that lie there too, so mouse events are looked at where they enter
        // the native window, before any child sees them.
        if (watched == m_host && m_host->windowHandle())
            m_host->windowHandle()->installEventFilter(this);
        return false;
    case QEvent::Move:
    case QEvent::Resize:
        if (watched == m_host)
            Q_EMIT sigHostWidgetGeometryChanged();
        return false;
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
        break;
    default:
        return false;
    }
    if (watched != m_host->windowHandle())
        return false;
    const auto *mouse = static_cast<QMouseEvent *>(event);
    const Qt::Edges edges = edgesUnder(mouse->globalPos());
    if (event->type() == QEvent::MouseMove) {
        if (mouse->buttons() == Qt::NoButton)
            showCursor(edges);
        return false;
    }
    return edges && mouse->button() == Qt::LeftButton && m_host->windowHandle()->startSystemResize(edges);
}

void zel::paintWindowBorder(QWidget *widget)
{
    const QWidget *window = widget->window();
    if (window->isMaximized() || window->isFullScreen())
        return;
    QPainter painter(widget);
    painter.setPen(KSkin::color(KSkin::Color::Border));
    painter.drawRect(widget->rect().adjusted(0, 0, -1, -1));
}
