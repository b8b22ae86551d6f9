#pragma once

#include "lists/listleaving.h"
#include "lists/listmemory.h"
#include "lists/listreturning.h"
#include "lists/listunfiltered.h"
#include "lists/rowselection.h"
#include "lists/ui/keyboardmenu.h"
#include "lists/ui/listdrag.h"
#include "lists/ui/listhover.h"
#include "lists/ui/listkeyboard.h"
#include "lists/ui/listpress.h"
#include "lists/ui/listrename.h"
#include "lists/ui/typinglistarea.h"

#include <functional>

/// The list of a page, whose rows are opened, picked, renamed, dragged and asked for menus by mouse and by
/// keyboard. GUI thread. Needs a ListModel and a ListRowDelegate; what is dragged and dropped a page's list
/// says by ListCargo, for which it has to be told to drag and to accept drops.
///
/// Enter opens, as activated(), and so does a click where the desktop wants it; else a double click, as
/// doubleClicked(). Menus are asked for with customContextMenuRequested() in viewport coordinates: by
/// keyboard at the current row, outside of all rows when there is none. What is current and selected survives
/// reloads and filters.
class SectionListView : public TypingListArea, protected ListCargo
{
    Q_OBJECT
public:
    explicit SectionListView(QWidget *parent = nullptr);

    ListKeyboard &keyboard() { return m_keyboard; } ///< for the keys of the page

    QModelIndexList selectedRows() const ///< in the order of the rows
    {
        return zel::selectedRows(listModel(), selectionModel());
    }
    QStringList selectedIds() const
    {
        return zel::selectedRowIds(listModel(), selectionModel());
    }                                                                             ///< likewise
    int selectedCount() const { return zel::selectedRowCount(selectionModel()); } ///< O(ranges)
    /// What a key or button of the page acts on: the selected rows, without any the one with the focus ring.
    QModelIndexList chosenRows() const;
    QString currentId() const; ///< empty: none
    /// Those that are here; the first of them becomes current. Nothing while a name is typed.
    void selectIds(const QStringList &ids);
    /// Rows that the user sends away: when they go, the one after them is selected; see ListLeaving.
    void setLeaving(const QStringList &ids) { m_leaving.set(ids); }
    /// Rows that the user brings back: once they come, they are selected; see ListReturning.
    void setReturning(const QStringList &ids) { m_returning.expect(ids); }
    void beginRename(const QModelIndex &index) { m_rename.begin(index); }
    bool isRenaming() const { return m_rename.isOpen(); }
    ListRename &rename() { return m_rename; }
    void requestMenuOfCurrent() { m_menu.request(); } ///< selects the current row for it
    /// Opens a menu of rows there; one that was asked for by keyboard has its first entry marked. While it is
    /// open, the pointer counts as on the row where it was.
    void popUp(QMenu *menu, const QPoint &globalPos) { m_menu.popUp(menu, globalPos); }
    ListCargo *cargo() { return this; } ///< what can be dragged out and dropped in
    /// Changes what the model filters by, with `apply`. What is found begins at its first row; once nothing
    /// is hidden any more, the row that was current before is again, unless another one was picked meanwhile.
    void changeFilter(bool hidesRows, const QStringList &words, const std::function<void()> &apply);

    void reset() override;

Q_SIGNALS:
    void selectedRowsChanged();
    /// A button of the row, by the delegate's number; `below` is where a menu of it begins, on the screen.
    void buttonClicked(const QModelIndex &row, int button, const QPoint &below);
    void dragLingered(const QModelIndex &row); ///< over a row that would take it, for a moment
    void userReturned();                       ///< to the list or its window; a day may have begun meanwhile

protected:
    void fillOption(ListRowOption *option, const QModelIndex &index) const override;
    bool isDropTarget() const override { return m_drop.isList(); }
    void placesChanged() override { updateHover(); }

    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void bindKeys();
    bool leads(const QModelIndex &index) const;
    void setKeyboardLeads(bool leads);
    void moveByKey(QKeyEvent *event, bool ledBefore);
    QModelIndex firstLead() const;
    void updateHover();
    void hoverMoved(bool toOtherRow);

    ListMemory m_memory;
    ListLeaving m_leaving;
    ListReturning m_returning;
    ListUnfiltered m_unfiltered;
    ListKeyboard m_keyboard;
    ListHover m_hover{this};
    ListPress m_press;
    KeyboardMenu m_menu{this, [this] { updateHover(); }};
    ListRename m_rename{
        this, [this](QWidget *editor) { closeEditor(editor, QAbstractItemDelegate::RevertModelCache); }};
    ListDropTarget m_drop{this};
    bool m_keyboardLeads = false; // focus ring and row buttons are where the keyboard is
};
