#include "recentfile/ui/recentfiletitlemenu.h"

#include "recentfile/recentsettings.h"
#include "recentfile/recenttelemetry.h"

namespace telemetry = zel::recent::telemetry;

KRecentFileTitleMenu::KRecentFileTitleMenu(QWidget *parent)
    : QMenu(parent),
      m_reminder(addAction(QString(), this, &KRecentFileTitleMenu::onNotifyCheckAction)),
      m_clearUnread(
          addAction(tr("clear all of unread msg"), this, &KRecentFileTitleMenu::onClearAllUnreadCheckAction))
{
    setAccessibleName(tr("More for recent files"));
    m_reminder->setCheckable(true);
    update();
}

void KRecentFileTitleMenu::addCommands(const QList<QAction *> &commands)
{
    addSeparator();
    addActions(commands);
}

void KRecentFileTitleMenu::setUnreadCount(int count)
{
    m_unread = count;
    update();
}

void KRecentFileTitleMenu::onLoginStatusChanged(bool bLogin)
{
    m_loggedIn = bLogin;
    update();
}

// The text says what choosing it does; the check mark says how it is.
void KRecentFileTitleMenu::update()
{
    const bool on = zel::recent::remindersOn();
    m_reminder->setText(on ? tr("close reminder") : tr("open reminder"));
    m_reminder->setChecked(on);
    m_reminder->setEnabled(m_loggedIn);
    m_clearUnread->setEnabled(m_unread > 0);
}

void KRecentFileTitleMenu::onNotifyCheckAction()
{
    telemetry::post(telemetry::Event::NoticeClick);
    const bool on = !zel::recent::remindersOn();
    zel::recent::setRemindersOn(on);
    if (!on)
        telemetry::remindersSwitchedOff();
    update();
    Q_EMIT remindersChanged(on);
}

void KRecentFileTitleMenu::onClearAllUnreadCheckAction()
{
    Q_EMIT clearUnreadMsg();
}

void KRecentFileTitleMenu::showEvent(QShowEvent *event)
{
    update(); // another window may have changed the setting
    QMenu::showEvent(event);
    telemetry::post(telemetry::Event::MoreListShow);
}
