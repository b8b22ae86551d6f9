#pragma once

#include <QImage>
#include <QString>

/// The box's picture for the tray. GUI thread.
namespace zel::tray {

/// What the badge says in a picture of that size: nothing where there is only room for a dot, else the
/// number, at most "99+" or, in small pictures, "9+". Empty too for 0.
QString badgeText(int unread, int size);

/// `size` by `size` device pixels, drawn for just that size; above 0 `unread`, with a badge in its corner.
QImage image(int size, int unread);

} // namespace zel::tray
