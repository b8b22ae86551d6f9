#pragma once

#include "lists/listleaving.h"
#include "lists/listmemory.h"
#include "lists/listreturning.h"
#include "lists/rowselection.h"
#include "lists/ui/listdrag.h"
#include "lists/ui/listhover.h"
#include "lists/ui/listkeyboard.h"
#include "lists/ui/listpress.h"
#include "lists/ui/sectionlistarea.h"

/// The list of a page, whose rows are opened, picked, renamed, dragged and asked for menus by mouse and by
/// keyboard. GUI thread. Needs a ListModel and a ListRowDelegate; what is dragged and dropped a page's list
/// says by ListCargo, for which it has to be told to drag and to accept drops.
///
/// Enter opens, as activated(), and so does a click where the desktop wants it; else a double click, as
/// doubleClicked(). Menus are asked for with customContextMenuRequested() in viewport coordinates: by
/// keyboard at the current row, outside of all rows when there is none. What is current and selected survives
/// reloads and filters.
class SectionListView : public SectionListArea, protected ListCargo
{
    Q_OBJECT
public:
    explicit SectionListView(QWidget *parent = nullptr);

    void setTypeToFilter(
        bool on); ///< first: yes; else what is typed leads to the next row that begins with it
    ListKeyboard &keyboard() { return m_keyboard; } ///< for the keys of the page

    QModelIndexList selectedRows() const; ///< in the order of the rows
    QStringList selectedIds() const
    {
        return zel::selectedRowIds(listModel(), selectionModel());
    }                                                                             ///< likewise
    int selectedCount() const { return zel::selectedRowCount(selectionModel()); } ///< O(ranges)
    QString currentId() const;                                                    ///< empty: none
    void selectIds(const QStringList &ids); ///< those that are here; the first of them becomes current
    /// The model shows what a filter with these (folded) words lets through. The first hits are what was
    /// looked for; without words, what is selected among all.
    void showFound(const QStringList &words);
    /// Rows that the user sends away: when they go, the one after them is selected; see ListLeaving.
    void setLeaving(const QStringList &ids) { m_leaving.set(ids); }
    /// Rows that the user brings back: once they come, they are selected; see ListReturning.
    void setReturning(const QStringList &ids) { m_returning.expect(ids); }
    void beginRename(const QModelIndex &index); ///< of a row that can be edited
    bool isRenaming() const;
    void requestMenuOfCurrent(); ///< selects the current row for it

    void reset() override;
    void keyboardSearch(const QString &text) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

Q_SIGNALS:
    void selectedRowsChanged();
    void textTyped(const QString &text); ///< printable, to filter by
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
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
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
    void acceptInputMethods();
    bool leads(const QModelIndex &index) const;
    void setKeyboardLeads(bool leads);
    void updateHover();
    void hoverMoved(bool toOtherRow);

    ListMemory m_memory;
    ListLeaving m_leaving;
    ListReturning m_returning;
    ListKeyboard m_keyboard;
    ListHover m_hover{this};
    ListPress m_press;
    ListDropTarget m_drop{this};
    bool m_typeToFilter = true;
    bool m_keyboardLeads = false; // focus ring and row buttons are where the keyboard is
};
