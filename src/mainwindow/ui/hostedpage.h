#pragma once

#include "mainwindow/pageinfo.h"
#include "widgets/boxpage.h"

#include <QObject>

/// A page, made or not yet, and what the window keeps for it: the text in the search field, the unread marks.
/// GUI thread. A page that is not made, or has no contract and only explains what will come, takes everything
/// and does nothing.
class HostedPage final : public QObject, public BoxPageHost
{
    Q_OBJECT
public:
    /// `cloud` is not owned and may be null.
    HostedPage(const zel::PageInfo &info, KCloudSvrProxy *cloud, QObject *parent);

    void make(QWidget *parent); ///< once; the page hears what has been told until then
    const zel::PageInfo &info() const { return m_info; }
    QWidget *widget() const { return m_widget; } ///< null until it is made
    bool isSearchable() const { return m_page; }
    bool isBusy() const { return m_busy; } ///< see BoxPageHost::setBusy()
    QString filter() const { return m_filter; }
    int unreadCount() const { return m_unread; }

    /// Takes over from `old`, which goes with its window: the text that it is searched for, and what its page
    /// hands over if this one is not made yet.
    void continueFrom(HostedPage &old);
    void start();                ///< the box has come up; later calls do nothing
    void tellReady();            ///< the window stands on the screen, started; likewise
    void setChosen(bool chosen); ///< or another page was
    void setFilter(const QString &text);
    void findEnded(bool toFirstRow);
    void takeFocus();
    bool openPlace(const QString &place);
    void setCloudSpace(qint64 used, qint64 total);
    void releaseMemory();

    // BoxPageHost
    void beginFinding(const QString &typed) override { Q_EMIT findingBegun(typed); }
    void clearFilter() override { Q_EMIT filterCleared(); }
    void setUnread(int count, int redPointCount) override;
    void setBusy(bool busy) override;
    void openSettings(const QString &settingsPage) override { Q_EMIT settingsRequested(settingsPage); }

Q_SIGNALS:
    void findingBegun(const QString &typed);
    void filterCleared();
    void unreadChanged(int count, int redPointCount);
    void busyChanged();
    void settingsRequested(const QString &settingsPage);

private:
    const zel::PageInfo m_info;
    KCloudSvrProxy *m_cloud;
    QWidget *m_widget = nullptr;
    BoxPage *m_page = nullptr;
    std::unique_ptr<QObject> m_before; ///< handed over to the page that is to be made
    QString m_filter;
    bool m_busy = false;
    int m_unread = 0;
    qint64 m_usedSpace = -1;
    qint64 m_totalSpace = 0;
    bool m_started = false;
    bool m_ready = false;
    QObject m_watch; ///< parent of what watches the marks, which may tell to its end: goes first
};
