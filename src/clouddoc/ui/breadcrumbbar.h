#pragma once

#include "clouddoc/ui/crumbfit.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

class CrumbButton;
class QDropEvent;
class QMenu;

/// The way from the drive's root to the folder that is shown, each step a button. GUI thread. What has no
/// room is in a menu behind the first step. Tab reaches the bar, the arrow keys go from step to step.
class BreadcrumbBar : public QWidget
{
    Q_OBJECT
public:
    struct Crumb
    {
        QString id;
        QString name;
        bool operator==(const Crumb &) const = default;
    };

    explicit BreadcrumbBar(QWidget *parent = nullptr);

    void setCrumbs(const QVector<Crumb> &crumbs); ///< root first
    const QVector<Crumb> &crumbs() const { return m_crumbs; }
    void setTabPredecessor(QWidget *widget); ///< after which Tab comes here

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void crumbChosen(const QString &folderId);
    void itemsDropped(const QString &folderId, const QStringList &itemIds, const QString &fromFolder);
    void filesDropped(const QString &folderId, const QStringList &localPaths);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void rebuild();
    void arrange();
    void fillMenu();
    void moveFocus(int step);
    QVector<QWidget *> shown() const;

    QVector<Crumb> m_crumbs;
    QVector<CrumbButton *> m_buttons; // one for each crumb
    CrumbButton *m_more;
    QMenu *m_menu;
    QPointer<QWidget> m_predecessor;
    CrumbFit m_fit;
};
