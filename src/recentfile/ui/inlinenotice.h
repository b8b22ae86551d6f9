#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;

/// A one-line notice at the top of a page, for what went wrong but needs no decision. GUI thread. Goes away
/// by itself after a while (not while the pointer or the keyboard focus is on it), by its button, or by
/// Escape while the focus is on that. Hidden at first.
class InlineNotice : public QFrame
{
    Q_OBJECT
public:
    explicit InlineNotice(QWidget *parent = nullptr);

    void showText(const QString &text); ///< replaces the text before
    QString text() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void onTimeout();

    QLabel *m_text;
    QTimer m_timer{this};
};
