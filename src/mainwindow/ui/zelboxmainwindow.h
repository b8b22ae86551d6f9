#pragma once

#include "mainwindow/ui/windowplacement.h"

#include <QMainWindow>

class KCentralWidget;
class MainWindowHost;
class ZelBoxMainWindowMenu;

/// The large window of the document box. GUI thread; owned by the core, which is also its host.
/// Frameless: it draws its own title bar and leaves moving and resizing to the window manager.
class ZelBoxMainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// Hidden, at its default size. `host` must outlive the window.
    explicit ZelBoxMainWindow(MainWindowHost *host, QWidget *parent = nullptr);

    /// Writes the normal geometry and the maximised state to the settings store.
    void saveWindowState();
    /// Applies what saveWindowState() wrote, corrected for the screens that are there now. Before the first
    /// show.
    void restoreWindowState();

    /// Where the start came from, for the telemetry of the first show; "normal" unless told otherwise.
    void setShowSource(const QString &source) { m_showSource = source; }

    /// Takes the place of `old`, which goes next, on its screen, in its state and on its page, before the
    /// first show. What that one has reported is not reported again.
    void continueFrom(const ZelBoxMainWindow &old);
    /// The pages load what is to be told without a window (unread counts); the first show is still to come.
    void startHidden();

    int unreadCount() const;     ///< of all pages
    void showToFront();          ///< shows, un-minimises, raises and activates the window
    bool selectPage(int number); ///< false when there is no such page
    KCentralWidget *central() const { return m_central; }

Q_SIGNALS:
    void windowStateChange();
    void windowRestored();
    void windowMinimize();
    void windowMaximized();
    void windowClose();
    void windowShowToFront();
    void windowReadyToShow();
    void windowTitleClicked();
    void sigTitleLButtonClick();
    void closePopupWindow();
    void sigMsgCountChanged(int tabCode, int count, int redPointCount);
    void windowShowFromTaskIcon();
    void unreadCountChanged(int count); ///< of all pages together

public Q_SLOTS:
    void onMinBtnClicked();
    void onCloseBtnClicked(); ///< only tells: the core decides whether to hide or to ask
    void onRestoreMaxBtnClicked();
    void onStashProcessMemory(); ///< saves the geometry; the pages drop what they can make again
    void onMainWindowFirstShown();
    void onAppAboutToQuit(); ///< called by the core before it destroys the window
    void onWindowReadyToShow();
    void onWindowTitleClicked();
    void
    onLnkDialogDisappear(); ///< the desktop-shortcut dialog went away: the focus comes back to the window
    void onTitleLButtonClick();
    void slotMoveWidget(
        QPoint point); ///< moves the window's top left corner to `point`; ignored when maximised

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void connectTitleBar();
    void makeShortcuts();
    void showMenu();
    void showWindowMenu(const QPoint &globalPos);
    void tellUnread(int page, int count, int redPointCount);

    MainWindowHost *m_host;
    KCentralWidget *m_central;
    ZelBoxMainWindowMenu *m_menu = nullptr;
    QString m_showSource;
    WindowPlacement m_placement;
    bool m_firstShown = false;
    bool m_reportsFirstShow = true; ///< until it has been reported
};
