#pragma once

#include "recentfile/recentfileactions.h"
#include "recentfile/recentfilelogic.h"

#include <QObject>
#include <QPointer>

class KCloudSvrProxy;
class QWidget;
class ZelBoxRecentFileWidget;

/// Sets up the Recent page: makes its logic, its link to the cloud and its widget, and connects them. GUI
/// thread. The store itself is started and stopped by the application. Hand the page to its parent with
/// page().
class ZelBoxRecentFile : public QObject
{
public:
    /// What is worked with; no object is owned. Null means the process's own, for `cloud` none.
    struct Services
    {
        KCloudSvrProxy *cloud = nullptr;
        KRecentFileProxy *store = nullptr;
        KRecentFileEvents *events = nullptr;
        KDocumentOpener *opener = nullptr;
        KFileTrash *trash = nullptr;
    };

    explicit ZelBoxRecentFile(
        const Services &services, QWidget *pageParent = nullptr, QObject *parent = nullptr);
    ~ZelBoxRecentFile() override; ///< takes the page with it when nobody has

    KRecentFileLogic *logic() const { return m_logic; }
    ZelBoxRecentFileWidget *page() const;

private:
    RecentCloud *m_cloud;
    KRecentFileLogic *m_logic;
    RecentFileActions *m_actions;
    QPointer<ZelBoxRecentFileWidget> m_page;
};
