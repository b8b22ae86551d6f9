#include "recentfile/ui/recentclicks.h"

#include "recentfile/recenttelemetry.h"

#include <QApplication>

RecentClicks::RecentClicks()
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tell(); });
}

void RecentClicks::add(int row, const RecentFileInfo &record)
{
    if (m_timer.isActive() && record.id != m_record.id)
        tell();
    m_row = row;
    m_record = record;
    m_timer.start(QApplication::doubleClickInterval());
}

void RecentClicks::tell()
{
    m_timer.stop();
    if (m_row >= 0)
        zel::recent::telemetry::clicked(m_row, m_record);
    m_row = -1;
}

void RecentClicks::forget()
{
    m_timer.stop();
    m_row = -1;
}
