#pragma once

#include <QObject>
#include <memory>

class QMenu;
class QSystemTrayIcon;
class StatusNotifierItem;
class TrayLink;

/// The box's icon in the desktop's tray, if there is a tray: StatusNotifierItem where the desktop has that,
/// else the older trays of X11. GUI thread; nothing waits for the desktop, so whether there is a tray is
/// known some time after the construction only.
class ZelBoxTray : public QObject
{
    Q_OBJECT
public:
    explicit ZelBoxTray(QObject *parent);
    ~ZelBoxTray() override;

    void setState(const QString &state); ///< shown in the tool tip; empty: none
    void setUnread(int count);           ///< as a badge; a rising number asks for attention
    void setTransfers(int underWay);     ///< said by the tool tip: they go on while no window shows them

    /// A tray shows the icon at this moment. False while that is not known yet.
    bool reachable() const;

Q_SIGNALS:
    void activated(); ///< clicked: the main window comes to the front, or goes away from there
    void mainWindowRequested();
    void miniWindowRequested();
    void quickSearchRequested();
    void settingsRequested();
    void exitRequested();
    /// When a tray comes or goes; the older trays of X11 tell of neither, there reachable() alone is right.
    void reachableChanged(bool reachable);

private:
    void makeMenu();
    void connectItem();
    void updateText();
    void updateFallback();
    void onClicked();

    std::unique_ptr<QMenu> m_menu;
    StatusNotifierItem *m_item;
    TrayLink *m_link;
    std::unique_ptr<QSystemTrayIcon> m_fallback;
    QString m_state;
    int m_unread = 0;
    int m_transfers = 0;
    bool m_told = false; // what reachableChanged() told last
};
