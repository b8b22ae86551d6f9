#pragma once

#include <QListWidget>

/// The list of pages at the side of a dialog: icon and title per row, one always chosen. GUI thread. As wide
/// as its longest title; the keyboard's arrows choose.
class SideList : public QListWidget
{
    Q_OBJECT
public:
    /// `name` is the accessible name of the list.
    explicit SideList(const QString &name, QWidget *parent = nullptr);

    /// `icon` as in zel::tintedIcon(). Returns the row; the first page added is chosen.
    int addPage(const QString &icon, const QString &title);
    void choose(int row) { setCurrentRow(row); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void pageChosen(int row); ///< by the user or choose(); -1 never

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex &index, const QEvent *event) const override;
    void changeEvent(QEvent *event) override;
};
