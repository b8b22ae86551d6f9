#pragma once

#include <QObject>

class BoxWindows;
class OpenDialogs;
class ZelBoxCloudSvr;

/// How the box ends: who is asked, and what is still accepted meanwhile. GUI thread. Both parts outlive it.
class BoxExit : public QObject
{
    Q_OBJECT
public:
    BoxExit(BoxWindows &windows, OpenDialogs &dialogs, QObject *parent);

    /// Asks whether to end or to go on in the background, over the window that is in use. `exitWanted` says
    /// what Enter does: the user came for the exit, or only closed the window. `cloud`
    /// is asked what goes on without the box; may be null.
    void ask(bool exitWanted, ZelBoxCloudSvr *cloud);
    /// On a later turn of the loop, once what is under way has ended, which a dialog tells: it bounds the
    /// wait, and lets the user end it, or stay. Commands that come from then on are for the next box.
    void quitLater();

Q_SIGNALS:
    void backgroundChosen();
    void declined(); ///< nothing is to change
    void hostLeft(); ///< as a guest: the box's own windows are to go now

private:
    void quitNow();
    void leaveHost();

    BoxWindows &m_windows;
    OpenDialogs &m_dialogs;
};
