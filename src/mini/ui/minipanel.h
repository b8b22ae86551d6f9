#pragma once

#include "recentfile/recentfilelogic.h"

#include <QWidget>

class IconButton;
class QLabel;
class RecentPicker;

/// What the mini window shows: a header to drag it by, with its buttons, and the recent documents. GUI
/// thread.
class MiniPanel : public QWidget
{
    Q_OBJECT
public:
    explicit MiniPanel(const KRecentFileLogic::Services &services, QWidget *parent = nullptr);

    RecentPicker *picker() const { return m_picker; }
    void setPinned(bool pinned);         ///< shows it; pinToggled() is for the user's own choice
    void setPinVisible(bool visible);    ///< a window that cannot dock has no use for it
    void setPopupsAllowed(bool allowed); ///< false: no tool tips and no menus

Q_SIGNALS:
    void dragBegan(const QPoint &globalPos);
    void dragMoved(const QPoint &globalPos);
    void dragEnded();
    void pinToggled(bool pinned);
    void openRequested();
    void closeRequested();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Drag { None, Pressed, Moving };

    void layOutHeader();
    void updateIcon();

    QWidget *m_header;
    QLabel *m_icon;
    IconButton *m_open;
    IconButton *m_pin;
    IconButton *m_close;
    RecentPicker *m_picker;
    Drag m_drag = Drag::None;
    QPoint m_pressed; // global
};
