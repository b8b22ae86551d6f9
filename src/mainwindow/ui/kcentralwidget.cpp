#include "mainwindow/ui/kcentralwidget.h"

#include "base/sourcekeys.h"
#include "cloud/cloudspace.h"
#include "clouddoc/ui/transferpanel.h"
#include "clouddoc/ui/zelboxclouddocwidget.h"
#include "klitestyle.h"
#include "kskin.h"
#include "mainwindow/pagelist.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/searchbox.h"
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

namespace {
constexpr int PageMargin = 24; // left of the text of every page
}

KCentralWidget::KCentralWidget(const QString &title, KCloudSvrProxy *cloud, QWidget *parent)
    : QWidget(parent),
      m_cloud(cloud),
      m_titleBar(new TitleBar(title, this)),
      m_navigation(new NavigationBar(zel::pageList(), this)),
      m_spaceBar(new ZelBoxSpaceBar(this)),
      m_space(new CloudSpace(cloud, this)),
      m_stack(new QStackedWidget(this))
{
    m_navigation->setBottomWidget(m_spaceBar);
    m_titleBar->setSearchIndent(
        m_navigation->minimumWidth() + 1 + KLiteStyle::dpiScaled(PageMargin - 2)); // its own round frame
    auto *body = new QHBoxLayout;
    body->setSpacing(1); // the hairlines between the parts
    body->addWidget(m_navigation);
    body->addWidget(m_stack, 1);
    auto *layout = new QVBoxLayout(this);
    // One pixel for the border that the window paints around everything.
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(1);
    layout->addWidget(m_titleBar);
    layout->addLayout(body, 1);

    connect(m_navigation, &NavigationBar::pageChosen, this, qOverload<int>(&KCentralWidget::selectPage));
    SearchBox *search = m_titleBar->searchBox();
    connect(search, &QLineEdit::textChanged, this, &KCentralWidget::onSearchTextChanged);
    connect(search, &SearchBox::ended, this, [this](bool toFirstRow) {
        if (BoxPage *page = m_pages.value(m_currentPage).page)
            page->findEnded(toFirstRow);
    });
    connect(m_space, &CloudSpace::changed, this, &KCentralWidget::updateSpace);
    updateSpace();
    selectPage(zel::source::RecentFile);
}

bool KCentralWidget::selectPage(int number)
{
    if (number == m_currentPage)
        return true;
    if (number < 0 || number >= zel::pageList().size())
        return false;
    if (!m_pages.contains(number)) {
        m_pages.insert(number, createPage(number));
        m_stack->addWidget(m_pages.value(number).widget);
    }
    leavePage();
    m_currentPage = number;
    const Page page = m_pages.value(number);
    m_navigation->setCurrentPage(number);
    SearchBox *search = m_titleBar->searchBox();
    const bool searched = search->hasFocus();
    search->setPage(page.page ? zel::pageList().at(number).title : QString());
    search->setEnabled(page.page);
    search->setText(page.filter);
    m_stack->setCurrentWidget(page.widget);
    if (page.page)
        page.page->pageShown();
    else if (searched)
        focusPage(); // not the button beside the field, which a space would press
    Q_EMIT currentPageChanged(number);
    return true;
}

void KCentralWidget::leavePage()
{
    if (BoxPage *left = m_pages.value(m_currentPage).page)
        left->pageHidden();
}

bool KCentralWidget::selectPage(const QString &sourceKey)
{
    return selectPage(zel::pageNumber(sourceKey));
}

void KCentralWidget::stepPage(int by)
{
    const int count = zel::pageList().size();
    selectPage((m_currentPage + by + count) % count);
    focusPage();
}

void KCentralWidget::showTransfers()
{
    selectPage(zel::source::CloudDoc);
    m_cloudDocuments->transferPanel()->setOpen(true);
}

void KCentralWidget::focusPage()
{
    const Page page = m_pages.value(m_currentPage);
    QWidget *target = page.page ? page.page->focusTarget() : nullptr;
    (target ? target : page.widget)->setFocus(Qt::OtherFocusReason);
}

void KCentralWidget::releaseMemory()
{
    for (const Page &page : qAsConst(m_pages)) {
        if (page.page)
            page.page->releaseMemory();
    }
}

void KCentralWidget::beginFinding(const QString &typed)
{
    m_titleBar->searchBox()->begin(typed);
}

void KCentralWidget::clearFilter()
{
    m_titleBar->searchBox()->clear();
}

void KCentralWidget::onSearchTextChanged(const QString &text)
{
    const auto page = m_pages.find(m_currentPage);
    if (page == m_pages.end() || !page->page)
        return;
    page->filter = text;
    page->page->setFilterText(text);
}

KCentralWidget::Page KCentralWidget::createPage(int number)
{
    const zel::PageInfo info = zel::pageList().at(number);
    Page page;
    if (info.key == zel::source::RecentFile) {
        ZelBoxRecentFile::Services services;
        services.cloud = m_cloud;
        m_recent = (new ZelBoxRecentFile(services, m_stack, this))->page();
        page.widget = m_recent;
        page.page = m_recent;
    } else if (info.key == zel::source::CloudDoc) {
        m_cloudDocuments = new ZelBoxCloudDocWidget(m_cloud, m_stack);
        page.widget = m_cloudDocuments;
        page.page = m_cloudDocuments;
    } else {
        page.widget = new EmptyStateWidget(info.illustration, info.title, info.explanation, m_stack);
    }
    page.widget->setAccessibleName(info.title);
    if (page.page)
        page.page->setHost(this);
    return page;
}

void KCentralWidget::updateSpace()
{
    m_spaceBar->setLoggedIn(m_space->isLoggedIn());
    if (m_space->isLoggedIn())
        m_spaceBar->loginWidget()->setAccount(*m_space);
}

void KCentralWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), KSkin::color(KSkin::Color::Window));
    const QRect pages = m_stack->geometry();
    painter.fillRect(pages.adjusted(-1, -1, 0, 0), KSkin::color(KSkin::Color::Border));
    painter.fillRect(pages, KSkin::color(KSkin::Color::Surface));
    painter.end();
    zel::paintWindowBorder(this);
}
