#include "clouddoc/ui/clouddoclistview.h"

#include "clouddoc/clouddocmodel.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/clouddrag.h"

#include <QDropEvent>
#include <QMimeData>

using namespace zel::clouddoc;
using View = CloudDocListView;

CloudDocListView::CloudDocListView(QWidget *parent)
    : SectionListView(parent), m_delegate(new CloudDocDelegate(this))
{
    setItemDelegate(m_delegate);
    setDragEnabled(true);
    setAcceptDrops(true);
    setAccessibleName(tr("Documents of the folder"));
    keyboard().bind(Qt::Key_Backspace, ListKeyboard::Needs::Nothing, [this] { Q_EMIT upRequested(); });
    connect(this, &View::doubleClicked, this, &View::activated);
    connect(this, &View::dragLingered, this,
        [this](const QModelIndex &row) { Q_EMIT folderLingered(listModel()->idOf(row.row())); });
}

void View::setModel(QAbstractItemModel *model)
{
    m_documents = qobject_cast<CloudDocModel *>(model);
    Q_ASSERT(m_documents || !model);
    SectionListView::setModel(model);
}

void View::setFolderId(const QString &id)
{
    m_folderId = id;
}

std::unique_ptr<QMimeData> View::dragData(const QModelIndexList &rows) const
{
    CarriedItems items{m_folderId, {}};
    QStringList paths;
    for (const QModelIndex &row : rows) {
        const CloudDocument &document = m_documents->document(row.row());
        items.ids << document.id;
        if (!document.localPath.isEmpty())
            paths << document.localPath;
    }
    return itemsMimeData(items, paths);
}

bool View::acceptDrop(QDropEvent *event, const QModelIndex &row)
{
    if (!row.isValid())
        return acceptDrag(event, m_folderId);
    const CloudDocument &document = m_documents->document(row.row());
    return document.folder && acceptDrag(event, document.id);
}

void View::dropInto(const QModelIndex &row, QDropEvent *event)
{
    const QString folder = row.isValid() ? m_documents->document(row.row()).id : m_folderId;
    const CarriedItems items = itemsOf(event->mimeData());
    if (items.ids.isEmpty())
        Q_EMIT filesDropped(folder, localFiles(event->mimeData()));
    else
        Q_EMIT itemsDropped(folder, items.ids, items.folderId);
}
