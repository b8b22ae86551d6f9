#pragma once

#include <QPoint>
#include <QWidget>

class IconButton;
class KZelBoxWindowTitleButtonGroup;

/// The main window's own title bar: logo, title, menu button and window buttons. GUI thread.
/// Dragging it moves the window, a double click maximises or restores it.
class TitleBar : public QWidget
{
    Q_OBJECT
public:
    explicit TitleBar(const QString &title, QWidget *parent = nullptr);

    KZelBoxWindowTitleButtonGroup *buttons() const { return m_buttons; }
    IconButton *menuButton() const { return m_menuButton; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void leftButtonPressed();             ///< a left press anywhere on the free part of the bar
    void dragStarted(QPoint globalStart); ///< the pointer moved far enough with the left button held
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QString m_title;
    IconButton *m_menuButton;
    KZelBoxWindowTitleButtonGroup *m_buttons;
    QPoint m_pressed;
    bool m_dragging = false;
};
