#pragma once

#include "mini/minidock.h"

#include <memory>

class QScreen;
class QWidget;

/// How this desktop lets the mini window be placed. GUI thread.
class MiniSurface
{
public:
    virtual ~MiniSurface() = default;

    /// The one for this session; `closed` is called, on a later turn of the loop, when the desktop has taken
    /// the window away. The window must not have been shown before.
    static std::unique_ptr<MiniSurface> make(QWidget *window);

    virtual bool canPlace() const = 0;             ///< false: the desktop decides, and a place means nothing
    virtual bool canPopUp() const { return true; } ///< tool tips and menus over the window work
    /// The window can be moved under the pointer that drags it. Else it moves once it is let go.
    virtual bool canFollowPointer() const { return true; }
    virtual void place(zel::mini::Edge edge, const QRect &rect, QScreen *screen) = 0;
    virtual void shown() { }       ///< right after each show
    virtual void aboutToHide() { } ///< right before each hide
};
