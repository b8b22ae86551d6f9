#pragma once

#include <QRectF>

class QPainter;
class QWidget;

namespace zel {

/// Draws the focus ring inside the edge of `rect` when `widget` has the focus and it was moved by the
/// keyboard; nothing otherwise. `radius` is that of the outer edge; both in device-independent pixels. GUI
/// thread.
void paintFocusRing(QPainter *painter, const QWidget *widget, const QRectF &rect, qreal radius);

} // namespace zel
