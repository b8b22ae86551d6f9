#pragma once

#include <QFrame>
#include <QTimer>
#include <functional>

class QLabel;
class QPushButton;

/// A notice for what went wrong, was done or should be known and needs no decision at once; with a button, if
/// wanted. It floats in a NoticeArea. GUI thread. Goes by its close button, by Escape while the focus is on
/// it, or after a time (not while the pointer or the focus is on it). Hidden at first; read out by assistive
/// programs when it appears.
class NoticeBar : public QFrame
{
    Q_OBJECT
public:
    enum class Tone { Info, Problem };
    static constexpr int Stay = 0; ///< instead of a time: until it is closed

    explicit NoticeBar(QWidget *parent = nullptr);

    /// Replaces the notice before. `milliseconds` is how long it stays at least.
    void showText(const QString &text, Tone tone = Tone::Problem, int milliseconds = defaultTime());
    /// With a button: `actionTriggered` when it is clicked, `dismissed` when the notice goes without that.
    void showAction(
        const QString &text, const QString &action, Tone tone = Tone::Info, int milliseconds = defaultTime());
    /// Another, weaker button before the other, for as long as the notice lives.
    void addLink(const QString &text, std::function<void()> clicked);
    QString text() const;
    void triggerAction(); ///< as if its button were clicked; nothing while it has none
    /// It shows, offers nothing and would go by itself.
    bool isPassing() const { return !isHidden() && !m_offering && m_timer.isActive(); }
    bool isStanding() const { return !isHidden() && !m_timer.isActive(); } ///< it would not go by itself
    int naturalWidth() const; ///< for its text in one line, look::NoticeWidth at most; pixels

Q_SIGNALS:
    void actionTriggered();
    /// The notice with a button has gone unused; not when another such notice takes its place.
    void dismissed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    static int defaultTime();
    void present(const QString &text, Tone tone, int milliseconds);
    void endOffer();
    void onTimeout();
    void updateGlyph();

    QLabel *m_glyph;
    QLabel *m_text;
    QPushButton *m_action;
    QTimer m_timer{this};
    Tone m_tone = Tone::Problem;
    bool m_offering = false;
};
