#pragma once

#include "mainwindow/pageinfo.h"

#include <QWidget>

class CloudSpace;
class HostedPage;
class NavigationBar;
class QStackedWidget;
class TitleBar;
class ZelBoxSpaceBar;

/// Fills the client area of the main window: header above, navigation at the left, the chosen page beside it.
/// GUI thread. Pages are made on their first visit. What stands in the search field belongs to the page: it
/// is there again when the page is. No page is chosen at first.
class KCentralWidget : public QWidget
{
    Q_OBJECT
public:
    /// `pages` has one at least; `cloud` may be null: then nobody is ever logged in.
    KCentralWidget(
        const QString &title, const zel::PageList &pages, KCloudSvrProxy *cloud, QWidget *parent = nullptr);
    ~KCentralWidget() override;

    TitleBar *titleBar() const { return m_titleBar; }
    NavigationBar *navigation() const { return m_navigation; }
    ZelBoxSpaceBar *spaceBar() const { return m_spaceBar; }
    CloudSpace *cloudSpace() const { return m_space; }

    int pageCount() const { return m_pages.size(); }
    int currentPage() const { return m_currentPage; } ///< -1 until one is chosen
    bool selectPage(int number);                      ///< false when there is no such page
    /// The same by source key, and there at a place of this name (`base/sourcekeys.h`) if one is given.
    bool selectPage(const QString &sourceKey, const QString &place = {});
    int numberOf(const QString &sourceKey) const; ///< -1: there is no such page
    void stepPage(int by);                        ///< to the next one, or round
    void focusPage();                             ///< the keyboard goes into the chosen page
    void beginFinding(const QString &typed);      ///< in the search field
    int unreadCount() const;                      ///< of all pages
    bool isBusy() const;                          ///< any page: see BoxPageHost::setBusy()
    /// Takes the place of `old`, which goes: its page, what each page is searched for, what goes on there.
    void continueFrom(KCentralWidget &old);
    void startPages();    ///< the box has come up; later calls do nothing
    void tellReady();     ///< the window stands on the screen; the pages are started, too
    void releaseMemory(); ///< of every page that was made

Q_SIGNALS:
    void unreadChanged(int number, int count, int redPointCount);
    void busyChanged(); ///< isBusy(), perhaps
    void settingsRequested(const QString &settingsPage);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    HostedPage *page(int number); ///< made when it is not there yet
    void addPage(const zel::PageInfo &info);
    void forEachPage(void (HostedPage::*tell)()) const;
    void updateSpace();
    void onSearchTextChanged(const QString &text);

    KCloudSvrProxy *m_cloud;
    TitleBar *m_titleBar;
    NavigationBar *m_navigation;
    ZelBoxSpaceBar *m_spaceBar;
    CloudSpace *m_space;
    QStackedWidget *m_stack;
    QVector<HostedPage *> m_pages; ///< by number
    int m_currentPage = -1;
};
