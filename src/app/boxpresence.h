#pragma once

#include <QObject>
#include <QString>

class CommandTarget;
class DesktopActivation;
class ZelBoxTray;

/// How the box is reached without a window: its icon in the desktop's tray and its name on the session bus.
/// GUI thread; nothing here waits for the desktop.
class BoxPresence : public QObject
{
    Q_OBJECT
public:
    BoxPresence(CommandTarget &commands, QObject *parent); ///< `commands` outlives it

    void start();      ///< again: what another program had is tried once more
    void stop();       ///< both go; start() makes them anew
    void remakeTray(); ///< if there is one: its texts are those of the language that it was made in

    bool hasTray() const;                    ///< a tray shows the icon at this moment
    void setTrayState(const QString &state); ///< shown there; kept while there is no icon
    void setUnread(int count);               ///< the same
    void setTransfers(int underWay);         ///< the same

Q_SIGNALS:
    void trayClicked();
    void trayLost(); ///< the tray went, and has not come back for a while

private:
    void startTray();
    void onTrayReachable(bool reachable);

    CommandTarget &m_commands;
    ZelBoxTray *m_tray = nullptr;
    DesktopActivation *m_activation = nullptr;
    QString m_trayState;
    int m_unread = 0;
    int m_transfers = 0;
};
