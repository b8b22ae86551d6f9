#pragma once

#include <QAbstractButton>

/// A small round button that stays down, for narrowing a list. GUI thread. Put several into an exclusive
/// QButtonGroup; arrow keys then move between them.
class Chip : public QAbstractButton
{
    Q_OBJECT
public:
    explicit Chip(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
};
