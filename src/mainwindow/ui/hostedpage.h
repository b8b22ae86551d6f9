#pragma once

#include "mainwindow/pageinfo.h"
#include "widgets/boxpage.h"

#include <QObject>

/// A page that was made, and what the window keeps for it: the text in the search field, the unread marks.
/// GUI thread. A page without a contract, which only explains what will come, takes everything and does
/// nothing.
class HostedPage final : public QObject, public BoxPageHost
{
    Q_OBJECT
public:
    HostedPage(const zel::MadePage &made, QObject *parent);

    QWidget *widget() const { return m_widget; }
    bool isSearchable() const { return m_page; }
    QString filter() const { return m_filter; }
    int unreadCount() const { return m_unread; }

    void start();                ///< the box has come up
    void tellReady();            ///< the window stands on the screen
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
    void openSettings(const QString &settingsPage) override { Q_EMIT settingsRequested(settingsPage); }

Q_SIGNALS:
    void findingBegun(const QString &typed);
    void filterCleared();
    void unreadChanged(int count, int redPointCount);
    void settingsRequested(const QString &settingsPage);

private:
    QWidget *m_widget;
    BoxPage *m_page;
    QString m_filter;
    int m_unread = 0;
};
