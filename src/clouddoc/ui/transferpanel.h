#pragma once

#include <QFrame>

class CloudTransferModel;
class QLabel;
class QPropertyAnimation;
class QPushButton;
class TransferListView;

/// The transfers, in a panel that slides in from below the list. GUI thread. Hidden at first.
class TransferPanel : public QFrame
{
    Q_OBJECT
public:
    explicit TransferPanel(CloudTransferModel *transfers, QWidget *parent = nullptr);

    TransferListView *view() const { return m_view; }
    void setOpen(bool open);
    bool isOpen() const { return m_open; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void openChanged(bool open);
    void clearRequested();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    int wantedHeight() const;
    void slide(int to);
    void updateTexts();
    void follow();

    CloudTransferModel *m_transfers;
    QWidget *m_head;
    QLabel *m_title;
    QLabel *m_nothing;
    QPushButton *m_clear;
    TransferListView *m_view;
    QPropertyAnimation *m_slide;
    bool m_open = false;
};
