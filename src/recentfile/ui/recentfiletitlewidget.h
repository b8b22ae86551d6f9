#pragma once

#include "recentfile/recentfilter.h"

#include <QWidget>

class IconButton;
class KRecentFileTitleMenu;
class QLabel;
class QLineEdit;
class RecentSortMenu;

/// Header strip of the Recent page: its name, how many files it lists and how many of them are unread, the
/// field that finds, the order, and what else there is. GUI thread.
class ZelBoxRecentFileTitleWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileTitleWidget(QWidget *parent = nullptr);

    void setListTools(bool shown);  ///< the field that finds, and the order
    void setCount(int count);       ///< 0 shows none
    void setUnreadCount(int count); ///< likewise
    void setSort(const RecentSort &sort);
    QString findText() const;
    void setFindText(const QString &text);
    void clearFind() { setFindText({}); }
    /// Gives the field the focus; `typed` is added to what stands in it.
    void beginFinding(const QString &typed = {});

Q_SIGNALS:
    void clearUnreadMsg();
    void findTextChanged(const QString &text);
    void findEnded(
        bool toFirstRow); ///< the keyboard wants back into the list, onto its first row or where it was
    void sortChosen(const RecentSort &sort);
    void remindersChanged(bool on);
    void refreshRequested();
    void roamingGuideWanted(); ///< the user asks how files of other devices come here
    void needOpenRoaming(bool need);

public Q_SLOTS:
    void onLoginStatusChanged(bool bLogin);
    void onRoamingGuideLinkClicked();
    void onClearMsgLabelClicked();
    void onNotifyNeedOpenRoaming();
    void onChangeIgnoreStatus();    ///< switches the reminders over
    void onUpdateIgnoreBtnStatue(); ///< the reminders were switched elsewhere

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeFind();
    void makeButtons();
    void updateTexts();
    void updateUnread();
    void popUp(IconButton *button, class QMenu *menu);

    QLabel *m_title;
    QLabel *m_countLabel;
    QLabel *m_unreadLabel;
    QLineEdit *m_find;
    IconButton *m_sortButton;
    IconButton *m_moreButton;
    RecentSortMenu *m_sortMenu;
    KRecentFileTitleMenu *m_moreMenu;
    int m_count = 0;
    int m_unread = 0;
};
