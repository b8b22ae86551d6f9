#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;
class QPushButton;

/// What a page shows when it has nothing to list: a picture, a title, one sentence, and perhaps a button. GUI
/// thread. Given the focus, it hands it on to its first button, else to its title, which assistive programs
/// then read.
class EmptyStateWidget : public QWidget
{
    Q_OBJECT
public:
    /// `illustration` is an SVG resource (160 by 120), drawn in the skin's secondary text colour; its own
    /// opacities make the shades.
    EmptyStateWidget(
        const QString &illustration, const QString &title, const QString &text, QWidget *parent = nullptr);

    QPushButton *addAction(const QString &text); ///< owned by this widget; connect to clicked()
    void setTexts(const QString &title, const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void updatePicture();
    void handFocusOn(Qt::FocusReason reason);

    QString m_illustration;
    QLabel *m_picture;
    QLabel *m_title;
    QLabel *m_text;
    QBoxLayout *m_actions;
};
