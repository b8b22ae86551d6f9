#pragma once

#include "clouddoc/clouddocument.h"
#include "clouddoc/cloudtransfer.h"

#include <QObject>
#include <QSet>

class CloudDocLogic;
class DocumentOpening;
class NoticeBar;
class OpeningNotices;

/// Opens documents of the cloud page: a folder there, a file with the desktop's program, after it has been
/// downloaded where the drive keeps it elsewhere. GUI thread.
class CloudDocOpening : public QObject
{
    Q_OBJECT
public:
    /// Both outlive it; the notice says why something was not opened.
    CloudDocOpening(CloudDocLogic *logic, NoticeBar *notice, QObject *parent = nullptr);

    void open(const CloudDocuments &documents); ///< of several the files only: one folder can be on view
    void openLocal(const QString &path);        ///< empty: nothing
    void reveal(const QString &path);           ///< in the file manager

private:
    void download(const CloudDocument &document);
    void onTransferEnded(const CloudTransfer &transfer);

    CloudDocLogic *m_logic;
    DocumentOpening *m_opening;
    OpeningNotices *m_notices;
    QSet<QString> m_downloading; ///< items that are to be opened then
    QSet<QString> m_asked;       ///< those of which no transfer is known yet
};
