#pragma once

#include "krecentfile.h"
#include "lists/documentopening.h"

#include <QHash>
#include <QModelIndex>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>

class RecentCloud;
class ZelBoxRecentFileModel;

/// Controller of the Recent page without widgets: turns the store's notices into rows of the model, keeps the
/// roaming items fresh and opens documents. GUI thread. Without a model every path does nothing.
class KRecentFileLogic : public QObject
{
    Q_OBJECT
public:
    /// What the logic works with; no object is owned. Null means the process's own.
    struct Services
    {
        KRecentFileProxy *store = nullptr;
        KRecentFileEvents *events = nullptr;
        KDocumentOpener *opener = nullptr;
        RecentCloud *cloud = nullptr; ///< null: nobody is logged in
        int unreadSyncDelay = 4000;   ///< ms from a notice of unread items to the update it leads to
    };

    explicit KRecentFileLogic(QObject *parent = nullptr);
    explicit KRecentFileLogic(const Services &services, QObject *parent = nullptr);
    ~KRecentFileLogic() override;

    void setModel(ZelBoxRecentFileModel *model); ///< not owned
    ZelBoxRecentFileModel *model() const;
    bool isLoggedIn() const;
    bool isLoginKnown() const;     ///< whether somebody is
    bool isCloudReached() const;   ///< the service is there, so that isLoggedIn() means something
    RecentKeeping keeping() const; ///< whether what is done here lasts
    bool isStoreReady() const;     ///< it has read all that it keeps
    bool isWaitingForFirstLoad() const { return m_waitingForFirstLoad; }
    /// True while all rows are being replaced: the counts told meanwhile are not the last ones,
    /// itemsBatchArrived() follows.
    bool isReloading() const { return m_reloading; }
    /// Opens its documents, and tells when that fails; also for their folders and programs.
    DocumentOpening *opening() const { return m_opening; }

    void loadAll(); ///< full load; asks the store to get ready first when it is not
    // These take indexes of the model.
    void open(const QModelIndex &index); ///< opening() tells when it does not work out
    void openPath(const QString &path);  ///< the same, for a file that need not be on the list
    void openWith(const QModelIndex &index, const QString &programId); ///< the same, with this program
    /// Asks the cloud service to show its dialog. Dropped silently when nobody is logged in.
    void share(const QModelIndex &index);
    void checkPresence(const QModelIndexList &rows); ///< of the files that these rows are for
    /// The user has seen what other devices did, here and there. Tells recentFileUnreadMsgCount() when
    /// something was unread.
    void clearUnread();
    void clearUnread(const QModelIndex &index); ///< of one row

Q_SIGNALS:
    void itemAdded(RecentFileInfo info);
    void itemRemoved(RecentFileInfo info);
    void itemStateChanged(RecentFileInfo info);
    void itemsBatchArrived(int nTypes); ///< all rows were replaced; `nTypes` is the kind mask
    void recentFileUnreadMsgCount(quint64 count);
    void needToWaitFirstLoading(); ///< show the loading state until firstLoadingFinish()
    void firstLoadingFinish();
    void historyCleared(); ///< the user wants none of it back
    void loginTold();      ///< the service has said who is signed in
    void keepingChanged(RecentKeeping keeping);
    void foldersLeftOut(const QStringList &paths); ///< the list has documents only
    /// The service did not show its dialog for sharing.
    void shareNotServed(const RecentFileInfo &record);

public Q_SLOTS:
    void onRecentRecordInitFinished();
    void onRecentRecordArrived();
    void onRecentRecordAdded(const RecordInfoList &records);
    void onRecentRecordRemoved(const RecordInfoList &records);
    void onRecentRecordInfoChanged(const RecordInfoList &records);
    void onWindowFirstShown(); ///< starts the first load and the roaming refresh; later calls do nothing
    void onLoginStatusChanged(bool bLogin);
    void onTimingUpdateRoamingFiles();
    void onRoamingUnreadMsgArrive(const ZELBOX_ROAMING_MSGLIST &idMap);
    void onUpdateRecentRoamingFileItemsWithoutSync();
    void onUpdateRecentRoamingFileItemsWithSync();
    void onUpdateRecentTabUnreadPoint();

private:
    KRecentFileProxy *store() const;
    void connectStore();
    void connectCloud();
    bool canLoad() const;
    void finishWaiting();
    void rebuildRows();
    void onKindMaskChanged();
    void updateRoaming(bool sync);
    void markPending();
    void rememberPending(const QStringList &ids);
    bool takeChange(const RecentFileInfo &record);
    void logOut();
    const RecentFileInfo *recordToOpen(const QModelIndex &index);
    void onOpened(const QString &path);
    void onOpenFailed(const QString &name, DocumentOpening::Problem problem, const QString &path);
    RecentFileInfo askedAbout(const RecentFileInfo &record) const;
    RecordInfoList shownRecords() const;

    QTimer m_roamingTimer{this};
    ZELBOX_ROAMING_MSGLIST m_roamingUnread; ///< last set reported, also when it was seen meanwhile
    QPointer<ZelBoxRecentFileModel> m_model;
    QStringList m_pendingRoamingIds; ///< reported, but without a row so far
    bool m_waitingForFirstLoad = true;
    bool m_windowNotYetShown = true;
    bool m_reloading = false;
    Services m_services;
    DocumentOpening *m_opening;
    QHash<QString, QString> m_openingIds; ///< path -> record id of what is being opened
};
