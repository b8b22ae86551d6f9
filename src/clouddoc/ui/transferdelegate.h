#pragma once

#include "clouddoc/ui/transferrowtexts.h"
#include "lists/ui/rowdelegate.h"

class TransferListView;

/// Shows a row of the transfer list: icon, name, how it stands, its progress, and a button. GUI thread.
class TransferDelegate : public RowDelegate<TransferRow>
{
    Q_OBJECT
public:
    explicit TransferDelegate(TransferListView *view);

    void paint(
        QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QString buttonName(const QModelIndex &index, int button) const override;
    QString toolTip(const QModelIndex &index) const override;

protected:
    TransferRow rowOf(const QModelIndex &index) const override;

private:
    TransferListView *m_view;
};
