#pragma once

#include <QTimer>
#include <QVariantAnimation>

/// Slides a docked window out of sight when neither pointer nor keyboard is in it, and back. GUI thread. Told
/// what happens, it answers with the part of the window that is to be seen; nothing runs while it rests.
class MiniTuck : public QObject
{
    Q_OBJECT
public:
    explicit MiniTuck(QObject *parent = nullptr);

    qreal part() const { return m_part; } ///< 0: only the strip is seen, 1: all of it
    bool isTucked() const { return m_part <= 0; }

    void setAllowed(bool allowed);      ///< where it is not, the window is out
    void setPointerInside(bool inside); ///< also of the strip: touching it brings the window out
    void setActive(bool active);        ///< the window has the keyboard
    void setHeld(bool held);            ///< it is being dragged
    /// The window was asked for: it stays out until pointer or keyboard have come and gone.
    void comeOut();
    void reset(); ///< out at once, everything forgotten: the window was hidden

Q_SIGNALS:
    void partChanged(qreal part);

private:
    bool isWanted() const;
    void evaluate();
    void slideTo(int part);

    QVariantAnimation m_slide;
    QTimer m_patience; // a pointer that only passes by the edge of the window does not send it away
    qreal m_part = 1;
    int m_target = 1; // where m_part is or slides to
    bool m_allowed = false;
    bool m_pointerInside = false;
    bool m_active = false;
    bool m_held = false;
    bool m_asked = false;
};
