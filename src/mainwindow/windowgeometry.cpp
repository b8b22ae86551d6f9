#include "mainwindow/windowgeometry.h"

#include <algorithm>

namespace zel::geometry {
namespace {

bool keepsPosition(const QRect &rect, const ScreenState &screen)
{
    // QRect::right() and bottom() are the last pixel inside, so the edges themselves are one further.
    return rect.right() + 1 >= 0 && rect.bottom() + 1 >= 0 && rect.left() <= screen.totalWidth
        && rect.height() <= screen.primary.height() && rect.top() <= screen.primary.height()
        && rect.width() >= 1 && rect.height() >= 1 && rect.width() <= screen.totalWidth
        && (screen.primary.contains(rect.topLeft()) || screen.available.contains(rect.topLeft()));
}

} // namespace

QRect storedRect(int x, int y, int width, int height, const ScreenState &screen)
{
    constexpr int limit = 32767;
    constexpr int screensful = 4;
    if (width > limit || height > limit)
        return {};
    if (width > screensful * screen.totalWidth || height > screensful * screen.primary.height())
        return {};
    return {std::clamp(x, -limit, limit), std::clamp(y, -limit, limit), width, height};
}

QRect centered(const QSize &size, const QRect &area)
{
    // Not QRect::moveCenter(), which rounds the half pixel the other way when the window is larger than the
    // area.
    return {area.left() + (area.width() - size.width()) / 2, area.top() + (area.height() - size.height()) / 2,
        size.width(), size.height()};
}

QRect fitted(const QRect &rect, const QRect &area)
{
    const QSize size = rect.size().boundedTo(area.size());
    return {qBound(area.left(), rect.left(), area.left() + area.width() - size.width()),
        qBound(area.top(), rect.top(), area.top() + area.height() - size.height()), size.width(),
        size.height()};
}

Placement restore(const StoredPlacement &stored, const QSize &current, const ScreenState &screen)
{
    const bool hasStored = stored.normal.isValid();
    QRect candidate = stored.normal;
    if (!hasStored)
        candidate = centered(current, screen.available);
    else if (stored.maximized)
        candidate = screen.available;

    Placement result;
    result.maximized = candidate.size() == screen.available.size();
    // Without a stored rectangle there is no normal geometry to go back to but the candidate itself.
    result.normal = result.maximized && hasStored ? stored.normal : candidate;
    if (!keepsPosition(result.normal, screen))
        result.normal = centered(result.normal.size(), screen.available);
    result.normal.moveTo(std::max(0, result.normal.left()), std::max(0, result.normal.top()));
    if (!hasStored || stored.screensChanged)
        result.normal = fitted(result.normal, screen.available);
    return result;
}

} // namespace zel::geometry
