#pragma once

#include <QObject>
#include <QString>
#include <functional>

class CommandTarget;
class DesktopActivation;
class GoingOn;
class KCloudSvrProxy;
class TransferBubbles;
class ZelBoxTray;

/// How the box is reached, and what it tells, without a window: its icon in the desktop's tray, its name on
/// the session bus, and messages of the desktop. GUI thread; nothing here waits for the desktop.
class BoxPresence : public QObject
{
    Q_OBJECT
public:
    /// `commands` outlives it; `isWatched` says whether the user has a window of the box before him.
    BoxPresence(CommandTarget &commands, std::function<bool()> isWatched, QObject *parent);

    void follow(KCloudSvrProxy *cloud); ///< whose transfers are told; not owned

    void start();      ///< again: what another program had is tried once more
    void stop();       ///< both go; start() makes them anew
    void remakeTray(); ///< if there is one: its texts are those of the language that it was made in

    bool hasTray() const;                    ///< a tray shows the icon at this moment
    void setTrayState(const QString &state); ///< shown there; kept while there is no icon
    void setUnread(int count);               ///< the same

Q_SIGNALS:
    void trayClicked();
    void transfersRequested();
    void trayLost(); ///< the tray went, and has not come back for a while

private:
    void startTray();
    void setTransfers(int underWay);
    void onTrayReachable(bool reachable);

    CommandTarget &m_commands;
    GoingOn *m_goingOn;
    TransferBubbles *m_bubbles;
    ZelBoxTray *m_tray = nullptr;
    DesktopActivation *m_activation = nullptr;
    QString m_trayState;
    int m_unread = 0;
    int m_transfers = 0;
};
