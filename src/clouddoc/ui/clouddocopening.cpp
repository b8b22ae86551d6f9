#include "clouddoc/ui/clouddocopening.h"

#include "clouddoc/clouddoclogic.h"
#include "krecentfile.h"
#include "lists/documentopening.h"
#include "lists/ui/openingnotices.h"

#include <QStandardPaths>

CloudDocOpening::CloudDocOpening(CloudDocLogic *logic, NoticeBar *notice, QObject *parent)
    : QObject(parent),
      m_logic(logic),
      m_opening(new DocumentOpening(nullptr, this)),
      m_notices(new OpeningNotices(m_opening, notice, this))
{
    connect(m_opening, &DocumentOpening::opened, this, [](const QString &path) {
        if (KRecentFileProxy *recent = KRecentFileProxy::instance())
            recent->noteOpened(path);
    });
    connect(logic, &CloudDocLogic::transferEnded, this, &CloudDocOpening::onTransferEnded);
    connect(logic, &CloudDocLogic::operationFailed, this, [this](CloudOperation operation) {
        if (operation != CloudOperation::Download)
            return;
        m_downloading.subtract(m_asked);
        m_asked.clear();
    });
    connect(logic, &CloudDocLogic::operationDone, this, [this](CloudOperation operation) {
        if (operation == CloudOperation::Download)
            m_asked.clear();
    });
}

void CloudDocOpening::open(const CloudDocuments &documents)
{
    if (!m_notices->mayOpen(documents.size()))
        return;
    for (const CloudDocument &document : documents) {
        if (document.folder && documents.size() == 1) {
            m_logic->openFolder(document.id);
        } else if (!document.folder && !document.localPath.isEmpty()) {
            m_opening->open(document.localPath, document.name);
        } else if (!document.folder) {
            download(document);
        }
    }
}

// Who is impatient gets one copy all the same.
void CloudDocOpening::download(const CloudDocument &document)
{
    const bool isComing = m_asked.contains(document.id) || document.transfer != CloudDocument::Transfer::None;
    if (m_downloading.contains(document.id) && isComing)
        return;
    m_downloading.insert(document.id);
    m_asked.insert(document.id);
    m_logic->download({document.id}, QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
        CloudNameChoice::KeepBoth);
}

void CloudDocOpening::openLocal(const QString &path)
{
    if (!path.isEmpty())
        m_opening->open(path);
}

void CloudDocOpening::reveal(const QString &path)
{
    m_opening->reveal(path);
}

void CloudDocOpening::onTransferEnded(const CloudTransfer &transfer)
{
    const bool wanted = m_downloading.remove(transfer.itemId);
    if (wanted && transfer.state == CloudTransfer::State::Done)
        openLocal(transfer.localPath);
}
