#pragma once

#include <QRect>

/// Where the main window goes when it opens. Pure functions; device-independent pixels.
namespace zel::geometry {

struct ScreenState
{
    QRect primary;      ///< whole primary screen
    QRect available;    ///< without panels
    int totalWidth = 0; ///< widths of all screens, added up
};

struct StoredPlacement
{
    QRect normal; ///< as stored; an invalid rectangle when nothing (or nothing sensible) is stored
    bool maximized = false;
    bool screensChanged = false; ///< it was stored beside other screens, or at another scale
};

struct Placement
{
    QRect normal; ///< the geometry the window has when it is not maximised
    bool maximized = false;
    bool operator==(const Placement &) const = default;
};

/// The four stored numbers as a rectangle; invalid when no window is of that size (a damaged or hand-made
/// setting): beyond the window system's 16 bits, or many times larger than all screens together. A place
/// beyond the 16 bits becomes the furthest one; the size holds.
QRect storedRect(int x, int y, int width, int height, const ScreenState &screen);

/// `size` in the middle of `area`; halves of differences are rounded towards zero.
QRect centered(const QSize &size, const QRect &area);

/// As much of `rect` as `area` has room for, moved so that all of that lies in it.
QRect fitted(const QRect &rect, const QRect &area);

/// The placement for the next show. `current` is the window's size now (its default size). What was stored
/// beside the same screens comes back as it was; the rest is fitted into the available area.
Placement restore(const StoredPlacement &stored, const QSize &current, const ScreenState &screen);

} // namespace zel::geometry
