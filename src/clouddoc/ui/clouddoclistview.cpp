#include "clouddoc/ui/clouddoclistview.h"

#include "clouddoc/clouddocmodel.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "klitestyle.h"
#include "widgets/rowpaint.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QScrollBar>

namespace {
constexpr int WheelStep = 20; // pixels a line of the wheel

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_AltGr
        || key == Qt::Key_Meta;
}
} // namespace

CloudDocListView::CloudDocListView(QWidget *parent)
    : QListView(parent), m_delegate(new CloudDocDelegate(this))
{
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setFrameShape(NoFrame);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers); // beginRename()
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setDragEnabled(true);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    viewport()->setAttribute(Qt::WA_Hover);
    verticalScrollBar()->setSingleStep(KLiteStyle::dpiScaled(WheelStep));
    setAccessibleName(tr("Documents of the folder"));
}

void CloudDocListView::setModel(QAbstractItemModel *model)
{
    m_documents = qobject_cast<CloudDocModel *>(model);
    Q_ASSERT(m_documents || !model);
    QListView::setModel(model);
}

void CloudDocListView::setFolderId(const QString &id)
{
    m_folderId = id;
    setDropTarget({}, false);
}

QStringList CloudDocListView::selectedIds() const
{
    QVector<int> rows;
    const QItemSelection ranges = selectionModel() ? selectionModel()->selection() : QItemSelection();
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows << row;
    }
    std::sort(rows.begin(), rows.end());
    QStringList ids;
    ids.reserve(rows.size());
    for (const int row : std::as_const(rows))
        ids << m_documents->document(row).id;
    return ids;
}

int CloudDocListView::selectedCount() const
{
    int count = 0;
    const QItemSelection ranges = selectionModel() ? selectionModel()->selection() : QItemSelection();
    for (const QItemSelectionRange &range : ranges)
        count += range.height();
    return count;
}

QString CloudDocListView::currentId() const
{
    return currentIndex().data(CloudDocModel::IdRole).toString();
}

void CloudDocListView::selectIds(const QStringList &ids)
{
    QVector<int> rows;
    for (const QString &id : ids)
        rows << m_documents->rowOf(id);
    rows.removeAll(-1);
    if (rows.isEmpty())
        return;
    const QModelIndex first = m_documents->index(rows.constFirst());
    std::sort(rows.begin(), rows.end());
    QItemSelection selection; // of as few ranges as it takes: each costs at every row that is painted
    for (int from = 0, to = 0; from < rows.size(); from = to) {
        for (to = from + 1; to < rows.size() && rows.at(to) == rows.at(to - 1) + 1;)
            ++to;
        selection.select(m_documents->index(rows.at(from)), m_documents->index(rows.at(to - 1)));
    }
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

void CloudDocListView::setLeaving(const QStringList &ids)
{
    m_leaving = QSet<QString>(ids.cbegin(), ids.cend());
}

void CloudDocListView::beginRename(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
    edit(index);
}

void CloudDocListView::reset()
{
    m_dropRow = QPersistentModelIndex();
    QListView::reset();
}

void CloudDocListView::keyPressEvent(QKeyEvent *event)
{
    if (!isModifier(event->key())) // that may be on its way to a click
        setKeyboardLeads(true);
    const bool plain = event->modifiers() == Qt::NoModifier;
    if (event->key() == Qt::Key_Backspace && plain) {
        Q_EMIT sigUpRequested();
    } else if (event->key() == Qt::Key_Escape && selectionModel()->hasSelection()) {
        clearSelection();
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        requestMenuOfCurrent();
    } else {
        QListView::keyPressEvent(event);
    }
}

void CloudDocListView::mousePressEvent(QMouseEvent *event)
{
    setKeyboardLeads(false);
    if (event->button() == Qt::BackButton || event->button() == Qt::ForwardButton) {
        event->ignore(); // the page's
        return;
    }
    QListView::mousePressEvent(event);
}

void CloudDocListView::focusInEvent(QFocusEvent *event)
{
    const auto reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason)
        setKeyboardLeads(true);
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && m_documents && m_documents->rowCount() > 0)
        selectionModel()->setCurrentIndex(m_documents->index(0), QItemSelectionModel::NoUpdate);
}

// A menu by keyboard belongs to the current row, wherever the pointer is.
bool CloudDocListView::event(QEvent *event)
{
    if (event->type() == QEvent::ContextMenu
        && static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        requestMenuOfCurrent();
        event->accept();
        return true;
    }
    return QListView::event(event);
}

void CloudDocListView::requestMenuOfCurrent()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid()) {
        Q_EMIT customContextMenuRequested(viewport()->rect().center());
        return;
    }
    if (!selectionModel()->isSelected(current))
        selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
    scrollTo(current);
    const QRect rect = visualRect(current);
    Q_EMIT customContextMenuRequested({rect.left() + KLiteStyle::dpiScaled(40), rect.center().y()});
}

bool CloudDocListView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) // a day may have begun
        viewport()->update();
    return QListView::viewportEvent(event);
}

void CloudDocListView::setKeyboardLeads(bool leads)
{
    if (std::exchange(m_keyboardLeads, leads) != leads)
        update(currentIndex());
}

void CloudDocListView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QListView::selectionChanged(selected, deselected);
    Q_EMIT sigSelectionChanged();
}

// Who removes rows goes on with the next one, as long as nothing else is selected.
void CloudDocListView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const int current = currentIndex().row();
    const bool goes = current >= start && current <= end;
    const int next = end + 1 < m_documents->rowCount() ? end + 1 : start - 1;
    const bool sentAway = goes && m_leaving.contains(currentId());
    QListView::rowsAboutToBeRemoved(parent, start, end);
    if (!goes)
        return;
    const QItemSelection ranges = selectionModel()->selection();
    const bool nothingElse = std::all_of(ranges.cbegin(), ranges.cend(),
        [&](const QItemSelectionRange &range) { return range.top() >= start && range.bottom() <= end; });
    selectionModel()->setCurrentIndex(m_documents->index(next),
        sentAway && nothingElse && !ranges.isEmpty() ? QItemSelectionModel::ClearAndSelect
                                                     : QItemSelectionModel::NoUpdate);
}

void CloudDocListView::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        scheduleDelayedItemsLayout();
}

void CloudDocListView::paintEvent(QPaintEvent *event)
{
    m_delegate->setShowsFocus(m_keyboardLeads);
    QListView::paintEvent(event);
    if (!m_dropWhole)
        return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int inset = KLiteStyle::dpiScaled(6);
    zel::paintDropGround(&painter, viewport()->rect().adjusted(inset, inset, -inset, -inset), true);
}
