#pragma once

#include <QMenu>

/// The menu behind the "more" button of the Recent page's header. GUI thread. Everything in it concerns files
/// of other devices, so that nothing can be chosen while nobody is logged in.
class KRecentFileTitleMenu : public QMenu
{
    Q_OBJECT
public:
    explicit KRecentFileTitleMenu(QWidget *parent = nullptr);

    void setUnreadCount(int count);
    void addCommands(const QList<QAction *> &commands); ///< of the page, below; not owned

Q_SIGNALS:
    void remindersChanged(bool on); ///< and stored
    void clearUnreadMsg();

public Q_SLOTS:
    void onLoginStatusChanged(bool bLogin);
    void onNotifyCheckAction();         ///< the reminder action was chosen
    void onClearAllUnreadCheckAction(); ///< the action that clears the marks was chosen

protected:
    void showEvent(QShowEvent *event) override;

private:
    void update();

    QAction *m_reminder;
    QAction *m_clearUnread;
    bool m_loggedIn = false;
    int m_unread = 0;
};
