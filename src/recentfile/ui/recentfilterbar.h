#pragma once

#include "recentfile/documentkind.h"

#include <QScrollArea>

class QButtonGroup;
class QHBoxLayout;

/// Chips that narrow the list to one sort of documents; the first stands for all. GUI thread. Where they have
/// no room, they scroll sideways.
class RecentFilterBar : public QScrollArea
{
    Q_OBJECT
public:
    explicit RecentFilterBar(QWidget *parent = nullptr);

    zel::recent::DocumentKinds kinds() const; ///< of the chosen chip; empty for all
    void chooseAll();                         ///< tells kindsChanged() when another one was chosen

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void kindsChanged(zel::recent::DocumentKinds kinds);

protected:
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void makeChips();

    QButtonGroup *m_group;
    QHBoxLayout *m_row;
};
