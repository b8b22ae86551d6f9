#pragma once

#include "lists/ui/sectionlistview.h"

/// The rows of the transfer list with their buttons. GUI thread. Needs a CloudTransferModel. By keyboard:
/// Delete cancels the selected rows, Enter tries the current one again or opens what it brought.
class TransferListView : public SectionListView
{
    Q_OBJECT
public:
    explicit TransferListView(QWidget *parent = nullptr);

Q_SIGNALS:
    void cancelRequested(const QStringList &transferIds);
    void retryRequested(const QString &transferId);
    void openRequested(const QModelIndex &index); ///< of a transfer that is done

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void press(const QModelIndex &index);
    void choose(const QModelIndex &index);
    void cancelSelected();
};
