#pragma once

#include <QObject>

class CommandTarget;
class QMenu;
class QSystemTrayIcon;

/// The box's icon in the desktop's tray, if there is a tray. GUI thread.
class ZelBoxTray : public QObject
{
    Q_OBJECT
public:
    ZelBoxTray(CommandTarget *target, QObject *parent);
    ~ZelBoxTray() override;

    void setState(const QString &state); ///< shown in the tool tip; empty: none

private:
    CommandTarget *m_target;
    QSystemTrayIcon *m_icon;
    QMenu *m_menu;
};
