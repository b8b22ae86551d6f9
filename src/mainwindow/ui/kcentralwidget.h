#pragma once

#include "widgets/boxpage.h"

#include <QHash>
#include <QWidget>

class CloudSpace;
class KCloudSvrProxy;
class NavigationBar;
class QStackedWidget;
class TitleBar;
class ZelBoxCloudDocWidget;
class ZelBoxRecentFileWidget;
class ZelBoxSpaceBar;

/// Fills the client area of the main window: header above, navigation at the left, the chosen page beside it.
/// GUI thread. Pages are made on their first visit. What stands in the search field belongs to the page: it
/// is there again when the page is.
class KCentralWidget : public QWidget, public BoxPageHost
{
    Q_OBJECT
public:
    /// `cloud` may be null: then nobody is ever logged in.
    KCentralWidget(const QString &title, KCloudSvrProxy *cloud, QWidget *parent = nullptr);

    TitleBar *titleBar() const { return m_titleBar; }
    NavigationBar *navigation() const { return m_navigation; }
    ZelBoxSpaceBar *spaceBar() const { return m_spaceBar; }
    CloudSpace *cloudSpace() const { return m_space; }
    /// Made with this widget: it is the first page.
    ZelBoxRecentFileWidget *recentPage() const { return m_recent; }

    int currentPage() const { return m_currentPage; }
    bool selectPage(int number);               ///< false when there is no such page
    bool selectPage(const QString &sourceKey); ///< the same by key
    void stepPage(int by);                     ///< to the next one, or round
    void showTransfers();                      ///< the cloud documents with their transfers
    void focusPage();                          ///< the keyboard goes into the chosen page
    void releaseMemory();                      ///< of every page that was made

    // BoxPageHost
    void beginFinding(const QString &typed) override;
    void clearFilter() override;

Q_SIGNALS:
    void currentPageChanged(int number);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Page
    {
        QWidget *widget = nullptr;
        BoxPage *page = nullptr; ///< null: it has nothing to list
        QString filter;          ///< what stands in the search field while it is chosen
    };

    Page createPage(int number);
    void leavePage();
    void updateSpace();
    void onSearchTextChanged(const QString &text);

    KCloudSvrProxy *m_cloud;
    TitleBar *m_titleBar;
    NavigationBar *m_navigation;
    ZelBoxSpaceBar *m_spaceBar;
    CloudSpace *m_space;
    QStackedWidget *m_stack;
    QHash<int, Page> m_pages;
    ZelBoxRecentFileWidget *m_recent = nullptr;
    ZelBoxCloudDocWidget *m_cloudDocuments = nullptr;
    int m_currentPage = -1;
};
