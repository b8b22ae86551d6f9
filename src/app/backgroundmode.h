#pragma once

#include <QObject>
#include <QPointer>

class BoxPresence;
class CommandTarget;
class ZelBoxMainWindow;

/// How the main window leaves the screen: closed by its button, sent to the background, hidden where a tray
/// brings it back and minimised where none does. GUI thread.
class BackgroundMode : public QObject
{
    Q_OBJECT
public:
    /// Both outlive it.
    BackgroundMode(CommandTarget &commands, BoxPresence &presence, QObject *parent);

    void setWindow(ZelBoxMainWindow *window); ///< not owned; takes the place of the one before

    void enter();       ///< by command; stays in the enterprise product
    void leaveScreen(); ///< hides, or minimises where only the task bar could bring it back

Q_SIGNALS:
    void entered(); ///< the window has been hidden

private:
    void onCloseClicked(); ///< hides, asks or ends, by the user's setting
    void onTrayClicked();
    void onTrayLost();
    void hideWindow();

    CommandTarget &m_commands;
    BoxPresence &m_presence;
    QPointer<ZelBoxMainWindow> m_window;
    bool m_entering = false; // the window's own close signal is ours
};
