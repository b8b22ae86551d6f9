#pragma once

#include "clouddoc/ui/transferrowtexts.h"
#include "lists/ui/rowdelegate.h"

/// Shows a row of the transfer list: icon, name, how it stands, its progress, and a button. GUI thread.
class TransferDelegate : public RowDelegate<TransferRow>
{
    Q_OBJECT
public:
    explicit TransferDelegate(QObject *parent) : RowDelegate(parent) { }

    QString buttonName(const QModelIndex &index, int button) const override;
    QString toolTip(const QModelIndex &index) const override;

protected:
    TransferRow rowOf(const QModelIndex &index) const override;
};
