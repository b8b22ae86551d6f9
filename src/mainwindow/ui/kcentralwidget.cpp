#include "mainwindow/ui/kcentralwidget.h"

#include "base/sourcekeys.h"
#include "kskin.h"
#include "mainwindow/pagelist.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/titlebar.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "recentfile/ui/recentfile.h"
#include "recentfile/ui/recentfilewidget.h"
#include "widgets/emptystate.h"
#include "widgets/windowframe.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>

KCentralWidget::KCentralWidget(const QString &title, KCloudSvrProxy *cloud, QWidget *parent)
    : QWidget(parent),
      m_cloud(cloud),
      m_titleBar(new TitleBar(title, this)),
      m_navigation(new NavigationBar(zel::pageList(), this)),
      m_spaceBar(new ZelBoxSpaceBar(this)),
      m_pages(new QStackedWidget(this))
{
    m_navigation->setBottomWidget(m_spaceBar);
    auto *body = new QHBoxLayout;
    body->setSpacing(1); // the hairlines between the parts
    body->addWidget(m_navigation);
    body->addWidget(m_pages, 1);
    auto *layout = new QVBoxLayout(this);
    // One pixel for the border that the window paints around everything.
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(1);
    layout->addWidget(m_titleBar);
    layout->addLayout(body, 1);

    connect(m_navigation, &NavigationBar::pageChosen, this, qOverload<int>(&KCentralWidget::selectPage));
    selectPage(zel::source::RecentFile);
}

bool KCentralWidget::selectPage(int number)
{
    if (number == m_currentPage)
        return true;
    if (number < 0 || number >= zel::pageList().size())
        return false;
    QWidget *&page = m_pageByNumber[number];
    if (!page) {
        page = createPage(number);
        m_pages->addWidget(page);
    }
    m_currentPage = number;
    m_navigation->setCurrentPage(number);
    m_pages->setCurrentWidget(page);
    Q_EMIT currentPageChanged(number);
    return true;
}

bool KCentralWidget::selectPage(const QString &sourceKey)
{
    return selectPage(zel::pageNumber(sourceKey));
}

QWidget *KCentralWidget::createPage(int number)
{
    const zel::PageInfo page = zel::pageList().at(number);
    if (page.key == zel::source::RecentFile) {
        ZelBoxRecentFile::Services services;
        services.cloud = m_cloud;
        m_recent = (new ZelBoxRecentFile(services, m_pages, this))->page();
        connect(this, &KCentralWidget::currentPageChanged, m_recent, [this, number](int now) {
            if (now != number)
                m_recent->onClearUnreadMsgAfterTabChanged();
        });
        return m_recent;
    }
    return new EmptyStateWidget(
        QStringLiteral(":/icons_svg/empty_generic.svg"), page.title, page.explanation, m_pages);
}

void KCentralWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), KSkin::color(KSkin::Color::Window));
    const QRect pages = m_pages->geometry();
    painter.fillRect(pages.adjusted(-1, -1, 0, 0), KSkin::color(KSkin::Color::Border));
    painter.fillRect(pages, KSkin::color(KSkin::Color::Surface));
    painter.end();
    zel::paintWindowBorder(this);
}
