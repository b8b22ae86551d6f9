#pragma once

#include <QMargins>
#include <QRect>

class QWidget;

/// The column that a page's header, rows and notices stand in: never wider than look::ContentWidth, in the
/// middle of the page. GUI thread.
namespace zel {

/// How far the column is from either edge of a page this wide, pixels.
int contentInset(int pageWidth);
QRect contentRect(const QRect &page); ///< the column in it, from top to bottom

/// Keeps what the layout of `strip` (as wide as its page) holds inside the column, with these margins on top
/// of that; design pixels. To be called once, when the layout is there.
void keepInContentColumn(QWidget *strip, const QMargins &margins);

} // namespace zel
