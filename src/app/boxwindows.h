#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class CommandTarget;
class KSkin;
class KZelBoxCloudSettingsDlg;
class MainWindowHost;
class QWidget;
class ZelBoxMainWindow;
class ZelBoxMiniWidget;
class ZelBoxMiniWindow;

/// The box's four windows, each made on first use, and made anew when the language or the sizes have changed:
/// every text and size is set where a widget is made, so that is done again rather than a second way of doing
/// it kept in each of them. GUI thread. Destroys nothing by itself, because a shown widget must not outlive
/// the application object: see takeDown().
class BoxWindows : public QObject
{
    Q_OBJECT
public:
    /// Nothing is owned; all outlive the windows.
    BoxWindows(MainWindowHost &host, CommandTarget &commands, KSkin *skin, QObject *parent);

    ZelBoxMainWindow *mainWindow() const; ///< null until needed
    ZelBoxMiniWindow *miniWindow() const; ///< null until needed

    ZelBoxMainWindow *ensureMainWindow(); ///< made at its remembered place, hidden
    ZelBoxMiniWindow *ensureMiniWindow();
    ZelBoxMiniWidget *ensureMiniWidget();
    KZelBoxCloudSettingsDlg *ensureSettings(); ///< to be shown at once; goes when it is closed

    void showMainWindow(); ///< brings it to the front
    void showTransfers();  ///< there

    /// Makes every window anew, where it was. Waits for the end of what the user is in the middle of.
    void remake();
    /// A drag that began in a window, which runs a loop of its own inside that window's code; null: none.
    QObject *runningDrag() const;
    /// Where a question of the whole box belongs: the main window or the settings, whichever has the
    /// keyboard, else the main window where it is seen; null: nowhere.
    QWidget *frontWindow() const;

    bool hasAttention() const; ///< one of the windows has the keyboard

    /// Something is under way in the main window that would end half done with the box; workEnded() tells
    /// when not any more.
    bool isBusy() const;

    void takeDown(); ///< destroys all, the last made first; later uses make new ones

Q_SIGNALS:
    void mainWindowMade(ZelBoxMainWindow *window); ///< before its first show
    void miniWidgetMade(ZelBoxMiniWidget *widget);
    void languageChosen(); ///< in the settings, and stored
    void remade();
    void workEnded();

private:
    QVector<QWidget *> all() const;
    QObject *runningTask() const; ///< a drag, or a question that a window waits for
    void onTaskEnded();
    void startRecentStore();
    void remakeMainWindow();
    void remakeMiniWindow();
    void remakeSettings();

    MainWindowHost &m_host;
    CommandTarget &m_commands;
    KSkin *m_skin;
    QPointer<ZelBoxMainWindow> m_main;
    QPointer<ZelBoxMiniWindow> m_mini;
    QPointer<ZelBoxMiniWidget> m_miniWidget;
    QPointer<KZelBoxCloudSettingsDlg> m_settings;
    bool m_remakingWaits = false;
};
