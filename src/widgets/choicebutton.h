#pragma once

#include <QAbstractButton>

/// One of a few ways to go on, as a row of a dialog: icon, text, and below it what it is good for. As wide as
/// its dialog. GUI thread.
class ChoiceButton : public QAbstractButton
{
    Q_OBJECT
public:
    /// `icon` as in zel::tintedIcon().
    ChoiceButton(const QString &icon, const QString &text, const QString &explanation, QWidget *parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString m_icon;
    QString m_explanation;
};
