#include "lists/ui/listaccessible.h"

#include "lists/listmodel.h"
#include "lists/ui/rowaccessible.h"
#include "lists/ui/sectionlistview.h"

static QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<SectionListView *>(object);
    return view ? new ListAccessible(view) : nullptr;
}

ListAccessible::ListAccessible(SectionListView *view) : QAccessibleWidget(view, QAccessible::List) { }

ListAccessible::~ListAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

void ListAccessible::install()
{
    static const bool done = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(done)
}

void ListAccessible::tellCurrent(SectionListView *view)
{
    if (!QAccessible::isActive() || !view->currentIndex().isValid())
        return;
    QAccessibleEvent event(view, QAccessible::Focus);
    event.setChild(view->currentIndex().row());
    QAccessible::updateAccessibility(&event);
}

void ListAccessible::tellSelection(SectionListView *view)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(view, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&event);
}

SectionListView *ListAccessible::view() const
{
    return static_cast<SectionListView *>(object());
}

int ListAccessible::childCount() const
{
    const ListModel *model = view()->listModel();
    return model ? model->rowCount() : 0;
}

QAccessibleInterface *ListAccessible::child(int row) const
{
    if (row < 0 || row >= childCount())
        return nullptr;
    follow(view()->listModel());
    const QString id = m_followed->idOf(row);
    auto known = m_rows.find(id);
    if (known == m_rows.end()) {
        auto *made = new RowAccessible(view(), id);
        known = m_rows.insert(id, QAccessible::registerAccessibleInterface(made));
    }
    return QAccessible::accessibleInterface(known.value());
}

void ListAccessible::follow(const ListModel *model) const
{
    if (m_followed == model)
        return;
    m_followed = model;
    forgetGoneRows();
    m_connections = std::make_unique<QObject>();
    const auto forget = [this] { forgetGoneRows(); };
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, m_connections.get(), forget);
    QObject::connect(model, &QAbstractItemModel::modelReset, m_connections.get(), forget);
}

void ListAccessible::forgetGoneRows() const
{
    for (auto it = m_rows.begin(); it != m_rows.end();) {
        if (m_followed->rowOf(it.key()) >= 0) {
            ++it;
            continue;
        }
        QAccessible::deleteAccessibleInterface(it.value());
        it = m_rows.erase(it);
    }
}

QAccessibleInterface *ListAccessible::childAt(int x, int y) const
{
    return child(view()->indexAt(view()->viewport()->mapFromGlobal({x, y})).row());
}

QAccessibleInterface *ListAccessible::focusChild() const
{
    return child(view()->currentIndex().row());
}

int ListAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *row = dynamic_cast<const RowAccessible *>(child);
    return row ? row->row() : -1;
}

QAccessible::State ListAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = view()->selectionMode() != QAbstractItemView::SingleSelection;
    return state;
}
