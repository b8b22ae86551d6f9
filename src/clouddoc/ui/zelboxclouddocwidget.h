#pragma once

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/ui/cloudactiontable.h"
#include "clouddoc/ui/clouddocstates.h"
#include "widgets/boxpage.h"

#include <QWidget>
#include <optional>

class ArrivedUploads;
class CloudColumns;
class CloudDocCommands;
class CloudDocListView;
class CloudDocNotices;
class CloudDocOpening;
class CloudDocVisit;
class CloudDocToolBar;
class CloudListing;
class CloudStatusLine;
class QAction;
class SelectionSum;
class TransferPanel;

/// The page of cloud documents: one folder of the drive at a time, and the transfers. GUI thread. Owns its
/// logic; reads the drive from its first show on. What the user does is in CloudDocCommands, what is said of
/// it in CloudDocNotices.
class ZelBoxCloudDocWidget : public QWidget, public BoxPage
{
    Q_OBJECT
public:
    /// `proxy` is not owned. `before` is what another one has handed over; null: nothing.
    explicit ZelBoxCloudDocWidget(
        KCloudSvrProxy *proxy, QWidget *parent = nullptr, std::unique_ptr<QObject> before = nullptr);
    ~ZelBoxCloudDocWidget() override; ///< a name that is being typed is not given

    CloudDocLogic *logic() const { return m_logic; }
    CloudDocListView *view() const { return m_view; }
    CloudDocStates *states() const { return m_states; }
    TransferPanel *transferPanel() const { return m_panel; }
    QAction *action(CloudCommand command) const;

    void setFilterText(const QString &text) override;
    QWidget *focusTarget() override;
    void findEnded(bool toFirstRow) override;
    void setHost(BoxPageHost *host) override;
    void pageHidden() override;
    bool openPlace(const QString &place) override;
    void setCloudSpace(qint64 used, qint64 total) override;
    std::unique_ptr<QObject> handOver() override;

protected:
    void showEvent(QShowEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    ZelBoxCloudDocWidget(KCloudSvrProxy *proxy, QWidget *parent, const CloudDocVisit *before);

    void layOut();
    void goOn(const CloudDocVisit &before);
    void goOnNaming();
    void connectLogic();
    void connectView();
    void connectParts();
    void connectTransfers();
    void onActed(int command);
    void onFollowed();
    void updateActions();
    void showCounts();
    void updateTransfers();
    void clearFilter();
    void onFolderChanged();
    void onReady();
    void onClipboardChanged();
    void openSelected();
    void open(const CloudDocuments &documents);
    void openCrumb(const QString &id);
    void makeFolder();

    CloudDocLogic *m_logic;
    CloudDocListView *m_view;
    CloudDocStates *m_states;
    CloudDocCommands *m_commands;
    CloudDocNotices *m_notices;
    CloudDocOpening *m_opening;
    CloudDocToolBar *m_toolBar;
    CloudColumns *m_columns;
    CloudListing *m_listing;
    CloudStatusLine *m_status;
    TransferPanel *m_panel;
    ArrivedUploads *m_uploads;
    BoxPageHost *m_host = nullptr;
    SelectionSum *m_sum;
    bool m_failedTransfers = false; // since the user looked
    bool m_selectOnReady = false;
    std::optional<QString> m_newName; // that was typed for the current row in another window
};
