#include "lists/ui/keyboardmenu.h"

#include "klitestyle.h"

#include <QAbstractItemView>
#include <QScopedValueRollback>
#include <algorithm>

static constexpr int Indent = 40; // from the row's left edge

void KeyboardMenu::request()
{
    const QScopedValueRollback requesting(m_requesting, true);
    const QModelIndex current = m_view->currentIndex();
    if (!current.isValid()) {
        Q_EMIT m_view->customContextMenuRequested({0, -1});
        return;
    }
    if (!m_view->selectionModel()->isSelected(current))
        m_view->selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
    m_view->scrollTo(current);
    const QRect row = m_view->visualRect(current);
    Q_EMIT m_view->customContextMenuRequested({row.left() + KLiteStyle::dpiScaled(Indent), row.bottom()});
}

void KeyboardMenu::popUp(QMenu *menu, const QPoint &globalPos)
{
    m_open = menu;
    QObject::connect(menu, &QMenu::aboutToHide, m_view, m_closed, Qt::QueuedConnection); // once it is hidden
    menu->popup(globalPos);
    const QList<QAction *> actions = m_requesting ? menu->actions() : QList<QAction *>();
    const auto first = std::find_if(actions.cbegin(), actions.cend(),
        [](const QAction *action) { return action->isEnabled() && !action->isSeparator(); });
    if (first != actions.cend())
        menu->setActiveAction(*first);
}
