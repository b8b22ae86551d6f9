#include "lists/ui/rowaccessible.h"

#include "lists/listmodel.h"
#include "lists/ui/sectionlistview.h"

RowAccessible::RowAccessible(SectionListView *view, const QString &id) : m_view(view), m_id(id) { }

int RowAccessible::row() const
{
    return model() ? model()->rowOf(m_id) : -1;
}

const ListModel *RowAccessible::model() const
{
    return m_view ? m_view->listModel() : nullptr;
}

QModelIndex RowAccessible::index() const
{
    return model() ? model()->index(row()) : QModelIndex();
}

QAccessibleInterface *RowAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_view);
}

QString RowAccessible::text(QAccessible::Text text) const
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

QString RowAccessible::description() const
{
    const QModelIndex self = index();
    if (!self.isValid())
        return {};
    const QString said = self.data(Qt::AccessibleDescriptionRole).toString();
    QStringList parts{sectionTitle(), said.isEmpty() ? self.data(Qt::ToolTipRole).toString() : said,
        SectionListView::tr("%1 of %2", "place of a row in its list")
            .arg(self.row() + 1)
            .arg(model()->rowCount())};
    parts.removeAll({});
    return parts.join(QStringLiteral(", "));
}

QString RowAccessible::sectionTitle() const
{
    const zel::ListSections sections = model()->sections();
    const auto mine = std::find_if(sections.cbegin(), sections.cend(),
        [self = row()](const zel::ListSection &section) { return self < section.firstRow + section.count; });
    return mine == sections.cend() ? QString() : mine->title;
}

QRect RowAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect rect = m_view->visualRect(index());
    return {m_view->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
}

QAccessible::State RowAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QModelIndex self = index();
    state.selectable = true;
    state.multiSelectable = m_view->selectionMode() != QAbstractItemView::SingleSelection;
    state.extSelectable = state.multiSelectable;
    state.focusable = true;
    state.selected = m_view->selectionModel()->isSelected(self);
    state.focused = m_view->hasFocus() && m_view->currentIndex() == self;
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->visualRect(self));
    return state;
}

void *RowAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList RowAccessible::actionNames() const
{
    return {pressAction(), showMenuAction(), toggleAction()};
}

void RowAccessible::doAction(const QString &name)
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
