#pragma once

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/ui/clouddocstates.h"
#include "kdocumentopener.h"
#include "widgets/boxpage.h"

#include <QSet>
#include <QTimer>
#include <QWidget>

class CloudDocActions;
class CloudDocListView;
class CloudDocToolBar;
class CloudStatusLine;
class NoticeBar;
class QMenu;
class TransferPanel;

/// The page of cloud documents: one folder of the drive at a time, and the transfers. GUI thread. Owns its
/// logic; reads the drive from its first show on.
class ZelBoxCloudDocWidget : public QWidget, public BoxPage
{
    Q_OBJECT
public:
    explicit ZelBoxCloudDocWidget(KCloudSvrProxy *proxy, QWidget *parent = nullptr); ///< proxy not owned

    CloudDocLogic *logic() const { return m_logic; }
    CloudDocListView *view() const { return m_view; }
    CloudDocActions *actions() const { return m_actions; }
    CloudDocStates *states() const { return m_states; }
    TransferPanel *transferPanel() const { return m_panel; }

    void setFilterText(const QString &text) override;
    QWidget *focusTarget() override;
    void findEnded(bool toFirstRow) override;
    void setHost(BoxPageHost *host) override { m_host = host; }
    bool openPlace(const QString &place) override;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // What is shown.
    void layOut();
    void connectLogic();
    void connectResults();
    void connectView();
    void connectActions();
    CloudDocStates::State wantedState() const;
    void updateState();
    void keepForAMoment();
    void updateActions();
    void showCounts();
    void updateTransfers();
    void clearFilter();
    void onFolderChanged();
    void onReady();
    void onClipboardChanged();
    void onTrashed(int count, const QString &firstName);
    void onOperationFailed(CloudOperation operation, CloudProblem problem, int count);
    void tellProblem(const QString &text);

    // What the user does.
    void openSelected();
    void openDocument(const CloudDocument &document);
    void openLocal(const QString &path);
    void openCrumb(const QString &id);
    void onOpened(const QString &path, KDocumentOpener::Outcome outcome);
    void onTransferEnded(const CloudTransfer &transfer);
    void revealSelected();
    void downloadSelected();
    void carry(bool cut);
    void paste();
    void move(const QString &folderId, const QStringList &ids);
    void moveSelected();
    void renameCurrent();
    void makeFolder();
    void chooseUpload(bool folder);
    void upload(const QString &folderId, const QStringList &paths);
    void askAboutConflicts(CloudOperation operation, const CloudConflicts &conflicts, const QString &target);
    void showMenu(const QPoint &pos);
    QMenu *makeMenu(bool onRow);

    KCloudSvrProxy *m_proxy;
    CloudDocLogic *m_logic;
    CloudDocActions *m_actions;
    CloudDocToolBar *m_toolBar;
    NoticeBar *m_offline;
    NoticeBar *m_notice;
    CloudDocListView *m_view;
    CloudDocStates *m_states;
    CloudStatusLine *m_status;
    TransferPanel *m_panel;
    BoxPageHost *m_host = nullptr;
    QTimer m_loadingSoon; // until it is over, what was on view stays
    QTimer m_countSoon;
    QSet<QString> m_openNext;       // items that are being downloaded to be opened
    QSet<QString> m_opening;        // paths that the opener has
    bool m_failedTransfers = false; // since the user looked
    bool m_loadsLong = false;
    bool m_stale = false; // the rows are there, the service is not
    bool m_selectOnReady = false;
};
