#pragma once

#include <QProgressBar>

class QVariantAnimation;

/// A small ring that fills, for one transfer in a row or button; turns while the end is unknown (range 0 to
/// 0). GUI thread. Wakes nobody while it is hidden; stands still when nothing is to move.
class ProgressRing : public QProgressBar
{
    Q_OBJECT
public:
    /// `name` is the accessible name, such as the name of the file.
    explicit ProgressRing(const QString &name = {}, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QVariantAnimation *m_turning;
};
