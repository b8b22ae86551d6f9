#pragma once

#include <QKeySequence>
#include <QPushButton>

/// A button that shows the keys of a shortcut and, once it is pressed, takes the next keys for new ones.
/// While it waits, Escape gives up, Backspace or Delete stands for "no keys". GUI thread.
class KeyField final : public QPushButton
{
    Q_OBJECT
public:
    explicit KeyField(QWidget *parent = nullptr);

    void setKeys(const QKeySequence &keys); ///< ends the waiting
    QKeySequence keys() const { return m_keys; }
    bool isWaiting() const { return m_waiting; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return QPushButton::sizeHint(); }

Q_SIGNALS:
    void waitBegun();                          ///< for keys
    void keysChosen(const QKeySequence &keys); ///< empty: none. What is shown changes with setKeys() only.

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void wait(bool on);
    void showText();
    void take(const QKeyEvent &event);

    QKeySequence m_keys;
    Qt::KeyboardModifiers m_held; ///< while it waits
    bool m_waiting = false;
};
