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
#include <QKeyEvent>
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
      m_cloud(cloud),
      m_titleBar(new TitleBar(title, this)),
      m_navigation(new NavigationBar(pages, this)),
      m_spaceBar(new ZelBoxSpaceBar(this)),
      m_space(new CloudSpace(cloud, this)),
      m_stack(new QStackedWidget(this))
{
    m_navigation->setBottomWidget(m_spaceBar);
    m_titleBar->setSearchIndent(
        m_navigation->minimumWidth() + 1 + KLiteStyle::dpiScaled(PageMargin - 2)); // its own round frame
    m_stack->setMinimumHeight(1); // a page that would like more than there is must not squeeze the title bar
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

    // From the field the Tab key goes on into the page that it searches.
    setTabOrder(m_stack->previousInFocusChain(), m_titleBar->searchBox());

    connect(m_navigation, &NavigationBar::pageChosen, this, qOverload<int>(&KCentralWidget::selectPage));
    SearchBox *search = m_titleBar->searchBox();
    connect(search, &QLineEdit::textChanged, this, &KCentralWidget::onSearchTextChanged);
    connect(search, &SearchBox::ended, this,
        [this](bool toFirstRow) { m_pages.at(m_currentPage)->findEnded(toFirstRow); });
    connect(m_space, &CloudSpace::changed, this, &KCentralWidget::updateSpace);
    for (const zel::PageInfo &info : pages)
        addPage(info);
    updateSpace();
}

// What pages tell while they go with this is for nobody any more.
KCentralWidget::~KCentralWidget()
{
    for (HostedPage *each : std::as_const(m_pages))
        each->blockSignals(true);
}

void KCentralWidget::addPage(const zel::PageInfo &info)
{
    const int number = m_pages.size();
    auto *added = new HostedPage(info, m_cloud, this);
    m_pages.append(added);
    connect(added, &HostedPage::findingBegun, this, [this, number](const QString &typed) {
        if (number == m_currentPage)
            beginFinding(typed);
    });
    connect(added, &HostedPage::filterCleared, this, [this, number] {
        if (number == m_currentPage)
            m_titleBar->searchBox()->clear();
        else
            m_pages.at(number)->setFilter({});
    });
    connect(added, &HostedPage::settingsRequested, this, &KCentralWidget::settingsRequested);
    connect(added, &HostedPage::busyChanged, this, &KCentralWidget::busyChanged);
    connect(added, &HostedPage::unreadChanged, this,
        [this, number](int count, int redPointCount) { Q_EMIT unreadChanged(number, count, redPointCount); });
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
    search->setPage(chosen->isSearchable() ? chosen->info().title : QString(), chosen->widget());
    search->setEnabled(chosen->isSearchable());
    search->setText(chosen->filter());
    m_stack->setCurrentWidget(chosen->widget());
    chosen->setChosen(true);
    if (searched && !chosen->isSearchable())
        focusPage(); // not the button beside the field, which a space would press
    return true;
}

int KCentralWidget::numberOf(const QString &sourceKey) const
{
    const auto found = std::find_if(m_pages.cbegin(), m_pages.cend(),
        [&](const HostedPage *each) { return each->info().key == sourceKey; });
    return found == m_pages.cend() ? -1 : int(found - m_pages.cbegin());
}

bool KCentralWidget::selectPage(const QString &sourceKey, const QString &place)
{
    const int number = numberOf(sourceKey);
    if (number < 0 || !selectPage(number))
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
        [](int sum, const HostedPage *each) { return sum + each->unreadCount(); });
}

bool KCentralWidget::isBusy() const
{
    return std::any_of(
        m_pages.cbegin(), m_pages.cend(), [](const HostedPage *each) { return each->isBusy(); });
}

void KCentralWidget::continueFrom(KCentralWidget &old)
{
    for (int number = 0; number < pageCount(); ++number) {
        m_pages.at(number)->continueFrom(*old.m_pages.at(number));
        if (old.m_pages.at(number)->isBusy())
            page(number); // now: somebody has to hear how it ends
    }
    selectPage(old.m_currentPage);
    m_titleBar->searchBox()->setText(m_pages.at(m_currentPage)->filter());
}

void KCentralWidget::forEachPage(void (HostedPage::*tell)()) const
{
    for (HostedPage *each : m_pages)
        (each->*tell)();
}

void KCentralWidget::startPages()
{
    forEachPage(&HostedPage::start);
}

void KCentralWidget::tellReady()
{
    startPages();
    forEachPage(&HostedPage::tellReady);
}

void KCentralWidget::releaseMemory()
{
    forEachPage(&HostedPage::releaseMemory);
}

// What a page has no use for, its list without a selection among it, ends the search.
void KCentralWidget::keyPressEvent(QKeyEvent *event)
{
    SearchBox *search = m_titleBar->searchBox();
    if (event->key() == Qt::Key_Escape && !search->text().isEmpty())
        search->clear();
    else
        QWidget::keyPressEvent(event);
}

void KCentralWidget::onSearchTextChanged(const QString &text)
{
    if (m_currentPage >= 0)
        m_pages.at(m_currentPage)->setFilter(text);
}

HostedPage *KCentralWidget::page(int number)
{
    HostedPage *chosen = m_pages.at(number);
    if (!chosen->widget()) {
        chosen->make(m_stack);
        m_stack->addWidget(chosen->widget());
    }
    return chosen;
}

void KCentralWidget::updateSpace()
{
    m_spaceBar->setLoggedIn(m_space->isLoggedIn());
    if (m_space->isLoggedIn())
        m_spaceBar->loginWidget()->setAccount(*m_space);
    for (HostedPage *each : std::as_const(m_pages))
        each->setCloudSpace(m_space->usedBytes(), m_space->totalBytes());
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
