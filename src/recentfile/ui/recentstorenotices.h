#pragma once

#include "krecentfile.h"

#include <QObject>

class KRecentFileLogic;
class NoticeArea;
class NoticeBar;

/// Says on the Recent page's notices what the store tells of itself: whether the list is kept, and what it
/// did not take. GUI thread.
class RecentStoreNotices : public QObject
{
    Q_OBJECT
public:
    /// Both outlive it.
    RecentStoreNotices(KRecentFileLogic *logic, NoticeArea *notices, QObject *parent);

private:
    void tellKeeping(RecentKeeping keeping);
    void tellFolders(const QStringList &paths);

    NoticeBar *m_keeping; // stays while the list is not kept
    NoticeBar *m_folders;
};
