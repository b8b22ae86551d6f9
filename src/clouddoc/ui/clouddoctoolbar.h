#pragma once

#include "clouddoc/clouddocorder.h"
#include "clouddoc/ui/breadcrumbbar.h"

class CloudSortMenu;
class IconButton;
class ListActions;
class QPushButton;
class TransferButton;

/// Header strip of the cloud page: where one is, and what can be done there. GUI thread. In a narrow page
/// some buttons go; their keys and menus stay.
class CloudDocToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit CloudDocToolBar(const ListActions *actions, QWidget *parent = nullptr);

    BreadcrumbBar *crumbs() const { return m_crumbs; }
    TransferButton *transferButton() const { return m_transfers; }
    void setSort(const zel::ListSort &sort);
    void setSortShown(bool shown);
    void popUpUploadMenu(QWidget *below);

    QSize minimumSizeHint() const override; ///< of the narrowest form

Q_SIGNALS:
    void sortChosen(const zel::ListSort &sort);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    IconButton *buttonFor(QAction *action);
    void adapt();

    BreadcrumbBar *m_crumbs;
    IconButton *m_forward;
    IconButton *m_up;
    QPushButton *m_upload;
    IconButton *m_uploadIcon; // in its place in a narrow page
    IconButton *m_sort;
    TransferButton *m_transfers;
    QMenu *m_uploadMenu;
    CloudSortMenu *m_sortMenu;
};
