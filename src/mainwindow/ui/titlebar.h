#pragma once

#include <QPoint>
#include <QWidget>

class IconButton;
class KZelBoxWindowTitleButtonGroup;
class SearchBox;

/// The main window's header: logo and title, the search field, menu button and window buttons. GUI thread.
/// Dragging it moves the window, a double click maximises or restores it, a right click asks for the window's
/// menu.
class TitleBar : public QWidget
{
    Q_OBJECT
public:
    explicit TitleBar(const QString &title, QWidget *parent = nullptr);

    KZelBoxWindowTitleButtonGroup *buttons() const { return m_buttons; }
    IconButton *menuButton() const { return m_menuButton; }
    SearchBox *searchBox() const { return m_search; }
    void setSearchIndent(int left); ///< where the search field begins: above the text of the pages

    QSize sizeHint() const override;

Q_SIGNALS:
    void leftButtonPressed();             ///< a left press anywhere on the free part of the bar
    void dragStarted(QPoint globalStart); ///< the pointer moved far enough with the left button held
    void doubleClicked();
    void windowMenuRequested(QPoint globalPos);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QString m_title;
    SearchBox *m_search;
    IconButton *m_menuButton;
    KZelBoxWindowTitleButtonGroup *m_buttons;
    QPoint m_pressed;
    bool m_dragging = false;
};
