#pragma once

#include "recentfile/recentfilelogic.h"

#include <QObject>
#include <QPointer>

class QWidget;
class ZelBoxRecentFileWidget;

/// Sets up the Recent page: makes its logic and its widget and connects the two. GUI thread.
/// The store itself is started and stopped by the application. Hand the page to its parent with page().
class ZelBoxRecentFile : public QObject
{
public:
    explicit ZelBoxRecentFile(QWidget *pageParent = nullptr, QObject *parent = nullptr);
    ZelBoxRecentFile(
        const KRecentFileLogic::Services &services, QWidget *pageParent = nullptr, QObject *parent = nullptr);
    ~ZelBoxRecentFile() override; ///< takes the page with it when nobody has

    KRecentFileLogic *logic() const { return m_logic; }
    ZelBoxRecentFileWidget *page() const;

private:
    KRecentFileLogic *m_logic;
    QPointer<ZelBoxRecentFileWidget> m_page;
};
