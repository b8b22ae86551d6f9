#pragma once

#include <QAbstractButton>

/// One step of a BreadcrumbBar. GUI thread. Takes what is dropped onto it, unless it is the last step, which
/// is the folder that shows.
class CrumbButton : public QAbstractButton
{
    Q_OBJECT
public:
    CrumbButton(const QString &folderId, const QString &name, QWidget *parent);

    void setLast(bool last);
    QString folderId() const { return m_folderId; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void itemsDropped(const QString &folderId, const QStringList &itemIds, const QString &fromFolder);
    void filesDropped(const QString &folderId, const QStringList &localPaths);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setDropTarget(bool target);

    QString m_folderId;
    bool m_last = false;
    bool m_dropTarget = false;
};
