#pragma once

#include <QRect>

class QWidget;

/// Where a window stands when it is in its normal state, and how that is remembered in the settings. GUI
/// thread; a member of the window.
class WindowPlacement
{
public:
    explicit WindowPlacement(QWidget &window) : m_window(window) { }

    void save() const; ///< the normal geometry and the maximised state
    /// Applies what save() wrote, corrected for the screens that are there now. Before the first show.
    void restore();
    void takeOver(const WindowPlacement &other); ///< its normal geometry. Before the first show.
    void onShown(); ///< told at the first show, and at each change of state later

private:
    bool isNormal() const;
    QRect normalRect() const;

    QWidget &m_window;
    /// What was restored, until the window has been on the screen in its normal state: before the first show
    /// the window system knows no normal geometry, and a window that opens maximised has none at all.
    QRect m_restoredRect;
};
