#pragma once

#include "mainwindow/pageinfo.h"

#include <QWidget>

class NavigationButton;

/// The list of pages at the left of the main window. GUI thread. Arrow keys move between pages, Tab leaves
/// the list.
class NavigationBar : public QWidget
{
    Q_OBJECT
public:
    explicit NavigationBar(const zel::PageList &pages, QWidget *parent = nullptr);

    void setBottomWidget(QWidget *widget);                   ///< takes it over; stands under the list
    void setCurrentPage(int number);                         ///< shows it as chosen; emits nothing
    void setBadge(int number, int count, int redPointCount); ///< a number, else a red dot, else nothing

Q_SIGNALS:
    void pageChosen(int number); ///< by mouse or keyboard

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void step(int by);

    QVector<NavigationButton *> m_buttons;
    int m_current = -1;
};
