#pragma once

#include <QCheckBox>

class QVariantAnimation;

/// A switch for a setting that acts at once. GUI thread. Its text is not drawn (it is the accessible name):
/// put a label before it and make the switch the label's buddy. Connect to toggled().
class Toggle : public QCheckBox
{
    Q_OBJECT
public:
    explicit Toggle(const QString &name = {}, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void checkStateSet() override;
    bool hitButton(const QPoint &pos) const override { return rect().contains(pos); }

private:
    void moveKnob(bool checked);

    QVariantAnimation *m_motion;
    qreal m_position = 0; ///< of the knob: 0 off, 1 on
};
