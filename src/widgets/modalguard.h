#pragma once

#include <QObject>

class QWidget;

/// Keeps a window quiet while a modal dialog blocks it. The toolkit keeps the mouse, drops and plain keys
/// off, but not the keys of actions; and on X11 a click on the window takes the keyboard from the dialog.
/// Here such keys do nothing, and both bring the dialog to the front. GUI thread; a child of the window that
/// it serves.
class ModalGuard final : public QObject
{
    Q_OBJECT
public:
    explicit ModalGuard(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void block();
    void unblock();
    bool belongsHere(QObject *target) const; ///< an action or control of the window, not of a dialog over it
    QWidget *blocker() const;                ///< the dialog that can be answered now; null: not one of ours
    void bringBlockerToFront() const;

    QWidget *m_window;
    bool m_isBlocked = false;
};
