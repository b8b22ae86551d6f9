#include "clouddoc/ui/arriveduploads.h"

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/ui/clouddoclistview.h"

#include <algorithm>

using Logic = CloudDocLogic;

ArrivedUploads::ArrivedUploads(CloudDocLogic *logic, CloudDocListView *view)
    : QObject(view), m_logic(logic), m_view(view)
{
    connect(logic, &Logic::transfersStarted, this, &ArrivedUploads::await);
    connect(logic, &Logic::transferEnded, this, &ArrivedUploads::note);
    connect(logic, &Logic::folderChanged, this, &ArrivedUploads::forget);
    // A row may come later than the end of its transfer.
    connect(logic->documents(), &QAbstractItemModel::rowsInserted, this, &ArrivedUploads::select);
}

void ArrivedUploads::forget()
{
    m_running.clear();
    m_arrived.clear();
}

// A small file has often come before the answer to the question for it.
void ArrivedUploads::await(const CloudTransfers &transfers)
{
    forget();
    m_current = m_view->currentId();
    m_selected = m_view->selectedCount();
    CloudTransfers over;
    for (const CloudTransfer &transfer : transfers) {
        if (transfer.direction != CloudTransfer::Direction::Up || transfer.folderId != m_logic->folderId())
            continue;
        m_running.insert(transfer.id);
        const int row = m_logic->transfers()->rowOf(transfer.id);
        if (row >= 0 && m_logic->transfers()->transfer(row).hasEnded())
            over << m_logic->transfers()->transfer(row);
    }
    std::for_each(over.cbegin(), over.cend(), [this](const CloudTransfer &each) { note(each); });
}

void ArrivedUploads::note(const CloudTransfer &transfer)
{
    if (!m_running.remove(transfer.id))
        return;
    if (transfer.state == CloudTransfer::State::Done)
        m_arrived << transfer.itemId;
    select();
}

void ArrivedUploads::select()
{
    const CloudDocModel &documents = *m_logic->documents();
    if (!m_running.isEmpty() || m_arrived.isEmpty()
        || !std::all_of(m_arrived.cbegin(), m_arrived.cend(),
            [&](const QString &id) { return documents.rowOf(id) >= 0; }))
        return;
    const QStringList ids = std::exchange(m_arrived, {});
    if (m_view->currentId() == m_current && m_view->selectedCount() == m_selected && !m_view->isRenaming())
        m_view->selectIds(ids);
}
