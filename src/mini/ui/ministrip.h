#pragma once

#include <QWidget>

/// What is seen of the mini window while it is out of sight: a bar to touch. GUI thread.
class MiniStrip : public QWidget
{
public:
    explicit MiniStrip(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};
