#pragma once

#include "kskin.h"

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace zel {

/// A line icon (":/icons_svg/<name>.svg", strokes of any colour) in a colour of the skin. It is drawn anew
/// for every size and device pixel ratio and follows a change of the skin at its next painting. GUI thread.
QIcon tintedIcon(const QString &resourcePath, KSkin::Color color = KSkin::Color::Text);

/// One picture of it: `size` in device-independent pixels, drawn for `ratio` device pixels each. Cached.
QPixmap tintedPixmap(const QString &resourcePath, const QSize &size, qreal ratio, const QColor &color);

} // namespace zel
