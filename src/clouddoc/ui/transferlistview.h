#pragma once

#include <QListView>
#include <QPersistentModelIndex>

class TransferDelegate;

/// The rows of the transfer list with their buttons. GUI thread. By keyboard: Delete cancels the selected
/// rows, Enter tries the current one again or opens what it brought.
class TransferListView : public QListView
{
    Q_OBJECT
public:
    explicit TransferListView(QWidget *parent = nullptr);

    int rowHeight() const;
    const QPersistentModelIndex &hotRow() const { return m_hot; } ///< its button is under the pointer
    bool isHotPressed() const { return m_pressed.isValid() && m_pressed == m_hot; }

Q_SIGNALS:
    void sigCancelRequested(const QStringList &transferIds);
    void sigRetryRequested(const QString &transferId);
    void sigOpenRequested(const QModelIndex &index); ///< of a transfer that is done

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    QModelIndex buttonAt(const QPoint &pos) const;
    void setHot(const QModelIndex &index);
    void press(const QModelIndex &index);
    void choose(const QModelIndex &index);

    TransferDelegate *m_delegate;
    QPersistentModelIndex m_hot;
    QPersistentModelIndex m_pressed;
};
