#pragma once

#include "lists/listanchor.h"
#include "lists/listlayout.h"
#include "lists/listmodel.h"
#include "lists/ui/listrowdelegate.h"

#include <QAbstractItemView>
#include <QBasicTimer>
#include <QPointer>

/// What a list shows and where: rows of one height, in sections whose topmost title stays at the top edge, at
/// most as wide as a page's content. GUI thread. Every place comes from ListLayout, so that nothing depends
/// on the number of rows; only rows that show are asked for data. The row at the top edge stays where it is
/// while others come and go above it. SectionListView is what the user does there.
class SectionListArea : public QAbstractItemView
{
    Q_OBJECT
public:
    explicit SectionListArea(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override; ///< a ListModel
    ListModel *listModel() const { return m_model; }
    ListRowDelegate *rowDelegate() const;
    int rowHeight() const;        ///< pixels
    int heightOf(int rows) const; ///< of a list without sections that shows so many rows whole; pixels

    void setSectionsShown(bool shown); ///< first: yes
    void setEndRoom(int pixels);       ///< below the last row, where something may stand over the list
    void setMarkedWords(const QStringList &words); ///< folded words of the filter, for the delegate

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override; ///< invalid on titles
    void doItemsLayout() override;
    void reset() override;

    ListRowOption rowOption(const QModelIndex &index) const; ///< what the row is painted with
    void updateRow(const QModelIndex &index) { viewport()->update(visualRect(index)); }

Q_SIGNALS:
    /// The rows that show have not changed for a moment, or the user has come back to them.
    void visibleRowsSettled(const QModelIndexList &rows);

protected:
    /// What the row is painted with, beyond what holds for all rows.
    virtual void fillOption(ListRowOption *option, const QModelIndex &index) const;
    virtual bool isDropTarget() const = 0; ///< what is dragged would go into the list
    virtual void placesChanged() = 0;      ///< rows may be elsewhere, or others

    const ListLayout &layout() const { return m_layout; }
    std::pair<int, int> visibleRows() const; ///< first and last; {-1, -2} when none shows
    void relayout();
    void settleSoon();

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &) const override { return false; }
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    void connectModel();
    zel::ListSections sections() const;
    QRect column() const;
    void leaveOldOrder(QAbstractItemModel::LayoutChangeHint hint);
    int rowFrom(int row, CursorAction action) const;
    ListRowOption plainOption() const;

    QPointer<ListModel> m_model; // of a page that goes the model may be the first to go
    ListLayout m_layout;
    ListAnchor m_anchor;
    QBasicTimer m_settle;
    QStringList m_markedWords;
    int m_endRoom = 0;
    bool m_sectionsShown = true;
    bool m_layingOut = false;
};
