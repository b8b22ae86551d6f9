#include "mainwindow/ui/kcentralwidget.h"

#include "cloud/cloudspace.h"
#include "klitestyle.h"
#include "kskin.h"
#include "mainwindow/ui/hostedpage.h"
#include "mainwindow/ui/navigationbar.h"
#include "mainwindow/ui/searchbox.h"
#include "mainwindow/ui/titlebar.h"
#include "mainwindow/ui/zelboxspacebar.h"
#include "widgets/windowframe.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>
#include <utility>

namespace {
constexpr int PageMargin = 24; // left of the text of every page
}

KCentralWidget::KCentralWidget(
    const QString &title, const zel::PageList &pages, KCloudSvrProxy *cloud, QWidget *parent)
    : QWidget(parent),
      m_infos(pages),
      m_cloud(cloud),
      m_titleBar(new TitleBar(title, this)),
      m_navigation(new NavigationBar(pages, this)),
      m_spaceBar(new ZelBoxSpaceBar(this)),
      m_space(new CloudSpace(cloud, this)),
      m_stack(new QStackedWidget(this)),
      m_pages(pages.size())
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
    connect(search, &SearchBox::ended, this,
        [this](bool toFirstRow) { m_pages.at(m_currentPage)->findEnded(toFirstRow); });
    connect(m_space, &CloudSpace::changed, this, &KCentralWidget::updateSpace);
    updateSpace();
    selectPage(0);
}

bool KCentralWidget::selectPage(int number)
{
    if (number == m_currentPage)
        return true;
    if (number < 0 || number >= pageCount())
        return false;
    HostedPage *chosen = page(number);
    const int left = std::exchange(m_currentPage, number);
    if (left >= 0)
        m_pages.at(left)->setChosen(false);
    m_navigation->setCurrentPage(number);
    SearchBox *search = m_titleBar->searchBox();
    const bool searched = search->hasFocus();
    search->setPage(chosen->isSearchable() ? m_infos.at(number).title : QString());
    search->setEnabled(chosen->isSearchable());
    search->setText(chosen->filter());
    m_stack->setCurrentWidget(chosen->widget());
    chosen->setChosen(true);
    if (searched && !chosen->isSearchable())
        focusPage(); // not the button beside the field, which a space would press
    return true;
}

bool KCentralWidget::selectPage(const QString &sourceKey, const QString &place)
{
    const auto row = std::find_if(
        m_infos.cbegin(), m_infos.cend(), [&](const zel::PageInfo &info) { return info.key == sourceKey; });
    if (row == m_infos.cend() || !selectPage(int(row - m_infos.cbegin())))
        return false;
    return place.isEmpty() || m_pages.at(m_currentPage)->openPlace(place);
}

void KCentralWidget::stepPage(int by)
{
    selectPage((m_currentPage + by + pageCount()) % pageCount());
    focusPage();
}

void KCentralWidget::focusPage()
{
    m_pages.at(m_currentPage)->takeFocus();
}

void KCentralWidget::beginFinding(const QString &typed)
{
    m_titleBar->searchBox()->begin(typed);
}

int KCentralWidget::unreadCount() const
{
    return std::accumulate(m_pages.cbegin(), m_pages.cend(), 0,
        [](int sum, const HostedPage *each) { return sum + (each ? each->unreadCount() : 0); });
}

void KCentralWidget::forEachMade(void (HostedPage::*tell)()) const
{
    for (HostedPage *each : m_pages) {
        if (each)
            (each->*tell)();
    }
}

void KCentralWidget::startPages()
{
    if (!std::exchange(m_started, true))
        forEachMade(&HostedPage::start);
}

void KCentralWidget::tellReady()
{
    startPages();
    if (!std::exchange(m_ready, true))
        forEachMade(&HostedPage::tellReady);
}

void KCentralWidget::releaseMemory()
{
    forEachMade(&HostedPage::releaseMemory);
}

void KCentralWidget::onSearchTextChanged(const QString &text)
{
    if (m_currentPage >= 0)
        m_pages.at(m_currentPage)->setFilter(text);
}

HostedPage *KCentralWidget::page(int number)
{
    if (!m_pages.at(number))
        makePage(number);
    return m_pages.at(number);
}

void KCentralWidget::makePage(int number)
{
    const zel::PageInfo &info = m_infos.at(number);
    auto *made = new HostedPage(info.make(m_cloud, m_stack), this);
    m_pages[number] = made;
    made->widget()->setAccessibleName(info.title);
    m_stack->addWidget(made->widget());
    connect(made, &HostedPage::findingBegun, this, &KCentralWidget::beginFinding);
    connect(made, &HostedPage::filterCleared, m_titleBar->searchBox(), &QLineEdit::clear);
    connect(made, &HostedPage::settingsRequested, this, &KCentralWidget::settingsRequested);
    connect(made, &HostedPage::unreadChanged, this,
        [this, number](int count, int redPointCount) { Q_EMIT unreadChanged(number, count, redPointCount); });
    made->setCloudSpace(m_space->usedBytes(), m_space->totalBytes());
    if (m_started)
        made->start();
    if (m_ready)
        made->tellReady();
}

void KCentralWidget::updateSpace()
{
    m_spaceBar->setLoggedIn(m_space->isLoggedIn());
    if (m_space->isLoggedIn())
        m_spaceBar->loginWidget()->setAccount(*m_space);
    for (HostedPage *each : std::as_const(m_pages)) {
        if (each)
            each->setCloudSpace(m_space->usedBytes(), m_space->totalBytes());
    }
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
