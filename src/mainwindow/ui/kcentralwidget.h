#pragma once

#include <QHash>
#include <QWidget>

class KCloudSvrProxy;
class NavigationBar;
class QStackedWidget;
class TitleBar;
class ZelBoxRecentFileWidget;
class ZelBoxSpaceBar;

/// Fills the client area of the main window: title bar above, navigation at the left, the chosen page beside
/// it. GUI thread. Pages are made on their first visit.
class KCentralWidget : public QWidget
{
    Q_OBJECT
public:
    /// `cloud` may be null: then nobody is ever logged in.
    KCentralWidget(const QString &title, KCloudSvrProxy *cloud, QWidget *parent = nullptr);

    TitleBar *titleBar() const { return m_titleBar; }
    NavigationBar *navigation() const { return m_navigation; }
    ZelBoxSpaceBar *spaceBar() const { return m_spaceBar; }
    ZelBoxRecentFileWidget *recentPage() const
    {
        return m_recent;
    } ///< made with this widget: it is the first page

    int currentPage() const { return m_currentPage; }
    bool selectPage(int number);               ///< false when there is no such page
    bool selectPage(const QString &sourceKey); ///< the same by key

Q_SIGNALS:
    void currentPageChanged(int number);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *createPage(int number);

    KCloudSvrProxy *m_cloud;
    TitleBar *m_titleBar;
    NavigationBar *m_navigation;
    ZelBoxSpaceBar *m_spaceBar;
    QStackedWidget *m_pages;
    QHash<int, QWidget *> m_pageByNumber;
    ZelBoxRecentFileWidget *m_recent = nullptr;
    int m_currentPage = -1;
};
