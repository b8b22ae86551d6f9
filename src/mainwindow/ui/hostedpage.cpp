#include "mainwindow/ui/hostedpage.h"

#include <QWidget>

namespace {
constexpr int MostUnread = 99999;
}

HostedPage::HostedPage(const zel::MadePage &made, QObject *parent)
    : QObject(parent), m_widget(made.widget), m_page(made.page)
{
    if (m_page)
        m_page->setHost(this);
}

void HostedPage::start()
{
    if (m_page)
        m_page->windowFirstShown();
}

void HostedPage::tellReady()
{
    if (m_page)
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
    m_filter = text;
    if (m_page)
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
