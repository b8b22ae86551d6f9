#include "lists/ui/listrename.h"

#include <QAbstractItemView>
#include <QLineEdit>

// What comes late takes nobody away from the name that he is typing.
void ListRename::begin(const QModelIndex &index)
{
    if (!index.isValid() || isOpen())
        return;
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    m_view->scrollTo(index);
    m_view->edit(index);
}

void ListRename::goOn(const QString &typed)
{
    begin(m_view->currentIndex());
    if (QLineEdit *line = editor()) {
        line->setText(typed);
        line->setModified(true); // else the row's own name comes back with its next change
    }
}

// Its row goes: nothing is to be renamed any more, and the keyboard stays in the list. The base class would
// let it go to what comes next in the window.
void ListRename::end()
{
    if (QWidget *open = isOpen() ? m_view->indexWidget(m_view->currentIndex()) : nullptr)
        m_close(open);
}

// The state of the base class says no once a row has moved.
bool ListRename::isOpen() const
{
    return m_view->isPersistentEditorOpen(m_view->currentIndex());
}

std::optional<QString> ListRename::typed() const
{
    const QLineEdit *line = editor();
    return line ? std::optional(line->text()) : std::nullopt;
}

QLineEdit *ListRename::editor() const
{
    return isOpen() ? qobject_cast<QLineEdit *>(m_view->indexWidget(m_view->currentIndex())) : nullptr;
}
