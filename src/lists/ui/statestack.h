#pragma once

#include <QStackedWidget>
#include <functional>

class EmptyStateWidget;

/// What stands in the middle of a list page: the list, or why there is none. GUI thread. The others are made
/// when they are first shown; the keyboard stays in the page when one takes the place of another.
class StateStack : public QStackedWidget
{
    Q_OBJECT
public:
    enum class State {
        Waiting,
        TimedOut,     ///< loading takes too long
        Empty,        ///< there is nothing to list
        NothingFound, ///< a filter hides all there is
        Failed,       ///< what should be listed cannot be read
        List,
    };
    Q_ENUM(State)
    using Maker = std::function<QWidget *()>; ///< the stack owns what it returns

    /// Begins with Waiting; `name` says for assistive programs what is waited for. Owns `list`.
    StateStack(QWidget *list, const QString &name, QWidget *parent = nullptr);

    /// Instead of what the stack has by itself: dots, a text with Retry, a text with Show All. Before the
    /// state is first shown; Empty has to have one.
    void setMaker(State state, Maker maker);
    /// The texts of a state that the stack makes by itself; at any time.
    void setTexts(State state, const QString &title, const QString &text);

    State state() const { return m_state; }
    void setState(State state);
    void setDropTarget(bool target); ///< a frame around all, while something is dragged over it
    QWidget *widgetOf(State state) const { return m_widgets[int(state)]; } ///< null: not made yet

Q_SIGNALS:
    void stateChanged(StateStack::State state);
    void retryRequested();
    void clearFilterRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Texts
    {
        QString title;
        QString text;
    };

    QWidget *widgetFor(State state);
    QWidget *make(State state);
    EmptyStateWidget *makeEmptyState(
        State state, const char *picture, const QString &button, void (StateStack::*pressed)());

    QString m_name;
    QWidget *m_widgets[6] = {}; // by State
    Maker m_makers[6];          // likewise
    Texts m_texts[6];           // likewise
    State m_state = State::Waiting;
    bool m_dropTarget = false;
};
