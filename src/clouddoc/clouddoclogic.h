#pragma once

#include "clouddoc/clouddocmodel.h"
#include "clouddoc/clouddocnames.h"
#include "clouddoc/cloudtransfermodel.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <functional>

class CloudDocLink;
class CloudFolderLoader;
class KCloudSvrProxy;
struct CloudNews;
struct CloudOutcome;
struct CloudPage;
template <class Value> struct CloudAnswer;
namespace zel::clouddoc {
enum class TransferStep : int;
}

/// The page of cloud documents without its widgets: one folder after the other, what the user does to its
/// documents, and the transfers. GUI thread; nothing blocks, and every answer comes on a later turn of the
/// loop. Lives as long as the page; does nothing before the first openRoot() or openFolder(). Changes that
/// anybody makes in the drive arrive as pushes; nothing is polled, and no timer runs while nothing happens.
///
/// Each operation ends with exactly one operationDone(), or else with operationFailed() for what could not be
/// done, or with conflictsFound() for taken names when the choice was CloudNameChoice::Ask, or with both in
/// this order. What was done is in the models before.
class CloudDocLogic final : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Idle,    ///< no folder was asked for yet
        Loading, ///< nothing of the folder is there yet
        Ready,   ///< also while further pages of a large folder arrive: isComplete()
        Offline, ///< the service is away; read anew by itself when it comes back. What was shown stays.
        Failed,  ///< see problem()
    };
    Q_ENUM(State)
    enum class Operation { CreateFolder, Rename, Move, Copy, Trash, UndoTrash, Upload, Download, Transfer };
    Q_ENUM(Operation)

    /// `proxy` is not owned, may be null (then all is Offline) and may be destroyed first.
    explicit CloudDocLogic(KCloudSvrProxy *proxy, QObject *parent = nullptr);
    ~CloudDocLogic() override;

    CloudDocModel *documents() const { return m_documents; }      ///< owned
    CloudTransferModel *transfers() const { return m_transfers; } ///< owned

    State state() const { return m_state; }
    CloudProblem problem() const { return m_problem; } ///< of State::Failed
    bool isComplete() const { return m_complete; }     ///< the last page of the folder has come
    bool isReloading() const { return m_reloading; }   ///< read anew while what is known stays on view
    bool isReached() const;                            ///< the service is there

    QString folderId() const
    {
        return m_folder.id;
    } ///< of the folder on view; empty: the root, before its id is known, or none
    QString folderPath() const { return m_folder.localPath; } ///< on this machine; may be empty
    CloudCrumbs crumbs() const { return m_crumbs; }
    /// Of the folder that was on view before, when it lies in this one: what up() and back() select. Empty.
    QString cameFrom() const { return m_cameFrom; }
    bool canGoUp() const { return m_crumbs.size() > 1; }
    bool canGoBack() const { return !m_back.isEmpty(); }
    bool canGoForward() const { return !m_forward.isEmpty(); }
    bool canUndoTrash() const { return !m_trashed.isEmpty(); }
    qint64 spaceUsed() const { return m_spaceUsed; }   ///< bytes; -1: not told yet
    qint64 spaceTotal() const { return m_spaceTotal; } ///< bytes; -1: no limit, or not told yet

    /// A name for a new folder that is free in the folder on view.
    QString freeFolderName(const QString &wanted) const;
    /// What keeps `name` from being given here; the item `id` that gets it has its own name, of course.
    zel::clouddoc::NameProblem checkName(const QString &name, const QString &id = {}) const;
    /// Whether `ids` may be moved into `folderId`, as far as is known here: not into themselves, not where
    /// they are.
    bool canMoveTo(const QStringList &ids, const QString &folderId) const;

public Q_SLOTS:
    // Where one is. Opening what is open reads it anew.
    void openRoot();
    void openFolder(const QString &id);
    void up();
    void back();
    void forward();
    /// Reads the folder anew; rows change only where it differs.
    void reload();
    void setSortOrder(CloudSort sort);

    // What the user does; names are checked before, see checkName().
    void createFolder(const QString &name); ///< folderCreated() precedes operationDone()
    void rename(const QString &id, const QString &name);
    void move(const QStringList &ids, const QString &folderId, CloudNameChoice choice = CloudNameChoice::Ask);
    void copy(const QStringList &ids, const QString &folderId, CloudNameChoice choice = CloudNameChoice::Ask);
    void trash(const QStringList &ids); ///< into the drive's recycle bin; trashed() precedes operationDone()
    void undoTrash();                   ///< of the last trash()
    /// Files and folders, by absolute local paths; what is done is in transfers() from then on. An empty
    /// folder id is the folder on view.
    void upload(const QStringList &localPaths, const QString &folderId = {},
        CloudNameChoice choice = CloudNameChoice::Ask);
    void download(
        const QStringList &ids, const QString &targetFolder, CloudNameChoice choice = CloudNameChoice::Ask);

    void cancelTransfers(const QStringList &ids);
    void retryTransfer(const QString &id); ///< one that failed or was cancelled, or a paused one
    void clearFinishedTransfers();

Q_SIGNALS:
    void stateChanged();   ///< state(), problem(), isComplete(), isReloading() or isReached()
    void folderChanged();  ///< another folder is on view; the model is empty then
    void crumbsChanged();  ///< also when a folder above was renamed
    void historyChanged(); ///< canGoUp(), canGoBack() or canGoForward()
    /// The folder on view was removed or is not there; the nearest one above it that is there is opened.
    void folderGone(const QString &name);
    void readingFailed(CloudProblem problem); ///< while rows stay on view: they may be out of date

    void folderCreated(const QString &id);             ///< it is in the model already
    void trashed(int count, const QString &firstName); ///< undoTrash() brings them back
    void untrashed(const QStringList &ids); ///< those of them that lie in this folder are in the model
    void transfersStarted(int count);
    void conflictsFound(CloudDocLogic::Operation operation, const CloudConflicts &conflicts,
        const QString &target); ///< call the operation again for their sources, with a choice
    void operationDone(CloudDocLogic::Operation operation);
    /// `detail` is for the log; `count` items were not done, the first of them because of `problem`.
    void operationFailed(
        CloudDocLogic::Operation operation, CloudProblem problem, int count, const QString &detail);
    void transferEnded(const CloudTransfer &transfer); ///< while one looks: done, failed or cancelled
    void spaceChanged(qint64 used, qint64 total);

private:
    struct Place
    {
        QString id; ///< empty: the root
        CloudCrumbs crumbs;
    };
    using Then = std::function<void(const CloudAnswer<CloudOutcome> &)>;
    using Step = std::function<void(const QStringList &ids, const Then &then)>;

    // Where one is (clouddoclogic.cpp).
    void go(const Place &place);
    Place place() const { return {m_folder.id, m_crumbs}; }
    bool isHere(const QString &id) const;
    bool isRootUnknown() const { return m_folder.id.isEmpty(); } ///< its id comes with its first page
    CloudCrumbs crumbsOf(const QString &id) const;
    int crumbOf(const QString &id) const;
    void setCrumbs(const CloudCrumbs &crumbs);
    void checkCrumbs();
    void leaveGoneFolder();
    void setState(State state, CloudProblem problem = CloudProblem::None);
    void read(bool anew);
    void onPage(const CloudPage &page, bool first);
    void onRead(bool fits);
    void onReadFailed(CloudProblem problem);
    CloudDocuments withoutTouched(const CloudDocuments &documents) const;
    void takeFresh(bool fits);

    // What the service tells (clouddoclogiclive.cpp).
    void onReached(bool reached);
    void onNews(const CloudNews &news);
    void readAgainSoon();
    void takePresent(const CloudDocuments &documents);
    void takeGone(const QStringList &ids);
    void watchTransfers();
    void takeTransfers(CloudTransfers transfers);
    void showTransferOf(const CloudTransfer &transfer);
    void showTransfers();
    void readRoom();

    // What the user does (clouddoclogicactions.cpp).
    void inParts(Operation operation, const QStringList &ids, const QString &target, const Step &step);
    void nextPart(Operation operation, const QStringList &ids, const QString &target, const Step &step,
        const CloudOutcome &before);
    void take(const CloudOutcome &outcome);
    void end(Operation operation, const CloudOutcome &outcome, const QString &target);
    void changeTransfers(const QStringList &ids, zel::clouddoc::TransferStep step);

    CloudDocLink *m_link; ///< owned, as all below
    CloudFolderLoader *m_loader;
    CloudDocModel *m_documents;
    CloudTransferModel *m_transfers;
    State m_state = State::Idle;
    CloudProblem m_problem = CloudProblem::None;
    CloudDocument m_folder;
    CloudCrumbs m_crumbs;
    QString m_cameFrom;
    QVector<Place> m_back;
    QVector<Place> m_forward;
    bool m_complete = false;  ///< all of the folder has been read once
    bool m_reloading = false; ///< into m_fresh
    bool m_stale = false;     ///< to be read again after this time
    QElapsedTimer m_reading;  ///< since the last reading began
    qint64 m_readingTook = 0; ///< ms
    QTimer m_readAgain;       ///< runs only while much is changed in the folder
    CloudDocuments m_fresh;
    QSet<QString> m_touched; ///< items of which news came while the folder is read; newer than a page
    bool m_checkingCrumbs = false;
    bool m_crumbsStale = false;
    bool m_readingRoom = false;
    bool m_roomStale = false;
    QStringList m_trashed; ///< ids in the recycle bin
    qint64 m_spaceUsed = -1;
    qint64 m_spaceTotal = -1;
};
