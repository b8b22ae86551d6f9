#pragma once

#include <QFrame>
#include <QTimer>

class QLabel;
class QPushButton;

/// A one-line notice at the top of a page, for what went wrong or was done and needs no decision. GUI thread.
/// Goes away by itself after a while (not while the pointer or the keyboard focus is on it), by its button,
/// or by Escape while the focus is on that. Hidden at first.
class InlineNotice : public QFrame
{
    Q_OBJECT
public:
    explicit InlineNotice(QWidget *parent = nullptr);

    enum class Tone { Problem, Done };

    void showText(const QString &text, Tone tone = Tone::Problem); ///< replaces the notice before
    /// With a button: `actionTriggered` when it is clicked, `offerEnded` when the notice goes without that
    /// and no other offer takes its place.
    void showOffer(const QString &text, const QString &action, int milliseconds);
    QString text() const;

Q_SIGNALS:
    void actionTriggered();
    void offerEnded();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void present(const QString &text, Tone tone, int milliseconds);
    void endOffer();
    void onTimeout();

    QLabel *m_text;
    QPushButton *m_action;
    QTimer m_timer{this};
    Tone m_tone = Tone::Problem;
    bool m_offering = false;
};
