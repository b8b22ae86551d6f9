#include "recentfile/ui/recentfile.h"

#include "recentfile/recentcloud.h"
#include "recentfile/ui/recentfilewidget.h"

ZelBoxRecentFile::ZelBoxRecentFile(const Services &services, QWidget *pageParent, QObject *parent)
    : QObject(parent),
      m_cloud(new RecentCloud(services.cloud, this)),
      m_logic(new KRecentFileLogic({services.store, services.events, services.opener, m_cloud}, this)),
      m_actions(new RecentFileActions({services.store, services.trash, m_cloud}, this)),
      m_page(new ZelBoxRecentFileWidget(m_logic, m_actions, pageParent))
{
    using Page = ZelBoxRecentFileWidget;
    connect(m_cloud, &RecentCloud::loginChanged, m_page, &Page::onLoginStatusChanged);
    connect(m_cloud, &RecentCloud::loginChanged, m_cloud, &RecentCloud::askForRoaming);
    connect(m_cloud, &RecentCloud::roamingTold, m_page, &Page::onRoamingStatusChanged);
    m_cloud->askForRoaming(); // who is signed in by now will not be told of again
}

ZelBoxRecentFile::~ZelBoxRecentFile()
{
    delete m_page;
}

ZelBoxRecentFileWidget *ZelBoxRecentFile::page() const
{
    return m_page;
}
