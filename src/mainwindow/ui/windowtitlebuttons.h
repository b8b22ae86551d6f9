#pragma once

#include "widgets/iconbutton.h"

#include <QWidget>

/// The button that maximises a window or restores it; shows the picture and name of what it would do now.
class KWindowRestoreMaxButton : public IconButton
{
    Q_OBJECT
public:
    explicit KWindowRestoreMaxButton(QWidget *parent = nullptr);

    void setMaximized(bool maximized);
};

/// Minimise, restore or maximise, close: the buttons at the end of a title bar. GUI thread.
class KZelBoxWindowTitleButtonGroup : public QWidget
{
    Q_OBJECT
public:
    explicit KZelBoxWindowTitleButtonGroup(QWidget *parent = nullptr);

    void setMaximized(bool maximized);

Q_SIGNALS:
    void minBtnClicked();
    void restoreMaxBtnClicked();
    void closeBtnClicked();

private:
    KWindowRestoreMaxButton *m_restoreMax;
};
