#include "mainwindow/ui/hostedpage.h"

#include <QWidget>
#include <utility>

namespace {
constexpr int MostUnread = 99999;
}

HostedPage::HostedPage(const zel::PageInfo &info, KCloudSvrProxy *cloud, QObject *parent)
    : QObject(parent), m_info(info), m_cloud(cloud)
{
}

void HostedPage::make(QWidget *parent)
{
    const zel::MadePage made = m_info.make(m_cloud, parent, std::move(m_before));
    m_widget = made.widget;
    m_page = made.page;
    m_widget->setAccessibleName(m_info.title);
    if (!m_page)
        return;
    m_page->setHost(this);
    m_page->setCloudSpace(m_usedSpace, m_totalSpace);
    if (!m_filter.isEmpty())
        m_page->setFilterText(m_filter);
    if (m_started)
        m_page->windowFirstShown();
    if (m_ready)
        m_page->windowReady();
}

void HostedPage::continueFrom(HostedPage &old)
{
    setFilter(old.m_filter);
    if (!m_widget)
        m_before = old.m_page ? old.m_page->handOver() : std::move(old.m_before);
}

void HostedPage::start()
{
    if (std::exchange(m_started, true))
        return;
    if (m_info.watchUnread)
        m_info.watchUnread(m_cloud, *this, &m_watch);
    if (m_page)
        m_page->windowFirstShown();
}

void HostedPage::tellReady()
{
    if (!std::exchange(m_ready, true) && m_page)
        m_page->windowReady();
}

void HostedPage::setChosen(bool chosen)
{
    if (!m_page)
        return;
    if (chosen)
        m_page->pageShown();
    else
        m_page->pageHidden();
}

void HostedPage::setFilter(const QString &text)
{
    if (std::exchange(m_filter, text) != text && m_page)
        m_page->setFilterText(text);
}

void HostedPage::findEnded(bool toFirstRow)
{
    if (m_page)
        m_page->findEnded(toFirstRow);
}

void HostedPage::takeFocus()
{
    QWidget *target = m_page ? m_page->focusTarget() : nullptr;
    (target ? target : m_widget)->setFocus(Qt::OtherFocusReason);
}

bool HostedPage::openPlace(const QString &place)
{
    return m_page && m_page->openPlace(place);
}

void HostedPage::setCloudSpace(qint64 used, qint64 total)
{
    m_usedSpace = used;
    m_totalSpace = total;
    if (m_page)
        m_page->setCloudSpace(used, total);
}

void HostedPage::releaseMemory()
{
    if (m_page)
        m_page->releaseMemory();
}

void HostedPage::setUnread(int count, int redPointCount)
{
    m_unread = qBound(0, count, MostUnread);
    Q_EMIT unreadChanged(m_unread, redPointCount);
}

void HostedPage::setBusy(bool busy)
{
    if (std::exchange(m_busy, busy) != busy)
        Q_EMIT busyChanged();
}
