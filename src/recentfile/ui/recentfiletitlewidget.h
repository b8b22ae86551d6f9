#pragma once

#include "lists/listsort.h"
#include "lists/ui/listheader.h"

class IconButton;
class KRecentFileTitleMenu;
class QLabel;
class RecentSortMenu;

/// Header strip of the Recent page: its name, how many files it lists and how many of them are unread, the
/// order, and what else there is. GUI thread.
class ZelBoxRecentFileTitleWidget : public ListHeader
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileTitleWidget(QWidget *parent = nullptr);

    void setListTools(bool shown); ///< the order
    /// How many there are, negative shows none; while some are selected, how many, and how large they are.
    void setCounts(int shown, int selected, qint64 selectedBytes);
    void setUnreadCount(int count); ///< negative shows none
    void setSort(const zel::ListSort &sort);
    void addCommands(const QList<QAction *> &commands); ///< of the page, to the menu; not owned

Q_SIGNALS:
    void clearUnreadMsg();
    void sortChosen(const zel::ListSort &sort);
    void remindersChanged(bool on);
    void roamingGuideWanted(); ///< the user asks how files of other devices come here
    void needOpenRoaming(bool need);

public Q_SLOTS:
    void onLoginStatusChanged(bool bLogin);
    void onRoamingGuideLinkClicked();
    void onClearMsgLabelClicked();
    void onNotifyNeedOpenRoaming();
    void onChangeIgnoreStatus();    ///< switches the reminders over
    void onUpdateIgnoreBtnStatue(); ///< the reminders were switched elsewhere

private:
    QLabel *m_unreadLabel;
    IconButton *m_sortButton;
    RecentSortMenu *m_sortMenu;
    KRecentFileTitleMenu *m_moreMenu;
    int m_unread = 0;
};
