#pragma once

#include "clouddoc/cloudtransfer.h"

#include <QObject>

class CloudDocLink;
class CloudDocModel;
class CloudTransferModel;

/// The transfers of the drive as the service tells them, in a list of their own and at the rows of the
/// documents that they are of. GUI thread.
class CloudDocTransfers final : public QObject
{
    Q_OBJECT
public:
    /// Both are used as long as this is. `documents` are those of the folder on view.
    CloudDocTransfers(CloudDocLink *link, CloudDocModel *documents, QObject *parent = nullptr);

    CloudTransferModel *model() const { return m_model; } ///< owned
    QStringList endedIds() const;

    void watch();     ///< reads the list and is told of changes from now on; ends with the connection
    void interrupt(); ///< the service has gone
    void take(CloudTransfers transfers); ///< as they are now
    void remove(const QStringList &ids); ///< taken off the list
    void showAll();                      ///< at the documents, which have been read anew

Q_SIGNALS:
    void ended(const CloudTransfer &transfer); ///< while one looks: done, failed or cancelled

private:
    void show(const CloudTransfer &transfer);

    CloudDocLink *m_link;
    CloudDocModel *m_documents;
    CloudTransferModel *m_model;
};
