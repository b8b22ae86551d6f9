#include "recentfile/ui/recentfile.h"

#include "recentfile/ui/recentfilewidget.h"

ZelBoxRecentFile::ZelBoxRecentFile(QWidget *pageParent, QObject *parent)
    : ZelBoxRecentFile(KRecentFileLogic::Services{}, pageParent, parent)
{
}

ZelBoxRecentFile::ZelBoxRecentFile(
    const KRecentFileLogic::Services &services, QWidget *pageParent, QObject *parent)
    : QObject(parent),
      m_logic(new KRecentFileLogic(services, this)),
      m_page(new ZelBoxRecentFileWidget(m_logic, pageParent))
{
}

ZelBoxRecentFile::~ZelBoxRecentFile()
{
    delete m_page;
}

ZelBoxRecentFileWidget *ZelBoxRecentFile::page() const
{
    return m_page;
}
