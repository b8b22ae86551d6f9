#include "recentfile/ui/recentlistaccessible.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfilelistview.h"

static RecentSortFilterModel *modelOf(const ZelBoxRecentFileListView *view)
{
    return view ? view->recentModel() : nullptr;
}

static QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<ZelBoxRecentFileListView *>(object);
    return view ? new RecentListAccessible(view) : nullptr;
}

RecentListAccessible::RecentListAccessible(ZelBoxRecentFileListView *view)
    : QAccessibleWidget(view, QAccessible::List)
{
}

RecentListAccessible::~RecentListAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_rows))
        QAccessible::deleteAccessibleInterface(id);
}

void RecentListAccessible::install()
{
    static const bool done = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(done)
}

ZelBoxRecentFileListView *RecentListAccessible::view() const
{
    return static_cast<ZelBoxRecentFileListView *>(object());
}

int RecentListAccessible::childCount() const
{
    const auto *model = modelOf(view());
    return model ? model->rowCount() : 0;
}

QAccessibleInterface *RecentListAccessible::child(int row) const
{
    if (row < 0 || row >= childCount())
        return nullptr;
    follow(modelOf(view()));
    const QString id = m_followed->index(row).data(ZelBoxRecentFileModel::IdRole).toString();
    auto known = m_rows.find(id);
    if (known == m_rows.end()) {
        auto *made = new RecentRowAccessible(view(), id);
        known = m_rows.insert(id, QAccessible::registerAccessibleInterface(made));
    }
    return QAccessible::accessibleInterface(known.value());
}

void RecentListAccessible::follow(const RecentSortFilterModel *model) const
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

void RecentListAccessible::forgetGoneRows() const
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

QAccessibleInterface *RecentListAccessible::childAt(int x, int y) const
{
    return child(view()->indexAt(view()->viewport()->mapFromGlobal({x, y})).row());
}

QAccessibleInterface *RecentListAccessible::focusChild() const
{
    return child(view()->currentIndex().row());
}

int RecentListAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *row = dynamic_cast<const RecentRowAccessible *>(child);
    return row ? row->row() : -1;
}

QAccessible::State RecentListAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = true;
    return state;
}

RecentRowAccessible::RecentRowAccessible(ZelBoxRecentFileListView *view, const QString &recordId)
    : m_view(view), m_id(recordId)
{
}

int RecentRowAccessible::row() const
{
    const auto *model = modelOf(m_view);
    return model ? model->rowOf(m_id) : -1;
}

QModelIndex RecentRowAccessible::index() const
{
    const auto *model = modelOf(m_view);
    return model ? model->index(model->rowOf(m_id)) : QModelIndex();
}

QAccessibleInterface *RecentRowAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_view);
}

QString RecentRowAccessible::text(QAccessible::Text text) const
{
    switch (text) {
    case QAccessible::Name:
        return index().data(Qt::AccessibleTextRole).toString();
    case QAccessible::Description:
        return description();
    default:
        return {};
    }
}

QString RecentRowAccessible::description() const
{
    QStringList parts{sectionTitle(), index().data(Qt::ToolTipRole).toString()};
    parts.removeAll({});
    return parts.join(QStringLiteral(", "));
}

QString RecentRowAccessible::sectionTitle() const
{
    const RecentSortFilterModel *model = modelOf(m_view);
    if (!model)
        return {};
    const int self = row();
    for (const zel::recent::RecentSection &section : model->sections()) {
        if (self >= section.firstRow && self < section.firstRow + section.count)
            return section.title;
    }
    return {};
}

QRect RecentRowAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect rect = m_view->visualRect(index());
    return {m_view->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
}

QAccessible::State RecentRowAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QModelIndex self = index();
    state.selectable = true;
    state.multiSelectable = true;
    state.extSelectable = true;
    state.focusable = true;
    state.selected = m_view->selectionModel()->isSelected(self);
    state.focused = m_view->hasFocus() && m_view->currentIndex() == self;
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->visualRect(self));
    return state;
}

void *RecentRowAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList RecentRowAccessible::actionNames() const
{
    return {pressAction(), showMenuAction(), toggleAction()};
}

void RecentRowAccessible::doAction(const QString &name)
{
    const QModelIndex self = index();
    if (!self.isValid())
        return;
    if (name == pressAction()) {
        Q_EMIT m_view->activated(self);
    } else if (name == showMenuAction()) {
        m_view->selectionModel()->setCurrentIndex(self, QItemSelectionModel::NoUpdate);
        m_view->requestMenuOfCurrent();
    } else if (name == toggleAction()) {
        m_view->selectionModel()->select(self, QItemSelectionModel::Toggle);
    }
}
