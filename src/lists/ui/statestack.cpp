#include "lists/ui/statestack.h"

#include "klitestyle.h"
#include "widgets/emptystate.h"
#include "widgets/loadingindicator.h"
#include "widgets/rowpaint.h"

#include <QPainter>
#include <QPushButton>

StateStack::StateStack(QWidget *list, const QString &name, QWidget *parent)
    : QStackedWidget(parent), m_name(name)
{
    m_texts[int(State::TimedOut)] = {tr("This takes longer than usual"), {}};
    m_texts[int(State::NothingFound)] = {tr("Nothing found"), {}};
    m_texts[int(State::Failed)] = {tr("This list cannot be shown"), {}};
    m_widgets[int(State::List)] = list;
    addWidget(list);
    setCurrentWidget(widgetFor(m_state));
}

void StateStack::setMaker(State state, Maker maker)
{
    m_makers[int(state)] = std::move(maker);
}

void StateStack::setTexts(State state, const QString &title, const QString &text)
{
    m_texts[int(state)] = {title, text};
    if (auto *made = qobject_cast<EmptyStateWidget *>(widgetOf(state)))
        made->setTexts(title, text);
}

void StateStack::setState(State state)
{
    if (m_state == state)
        return;
    const QWidget *focused = window()->focusWidget(); // our own focusWidget() may have lost it long ago
    const bool hadFocus = focused == currentWidget() || currentWidget()->isAncestorOf(focused);
    m_state = state;
    setCurrentWidget(widgetFor(state));
    if (hadFocus) // else it would go to whatever comes next in the window
        currentWidget()->setFocus(Qt::OtherFocusReason);
    Q_EMIT stateChanged(state);
}

QWidget *StateStack::widgetFor(State state)
{
    QWidget *&widget = m_widgets[int(state)];
    if (!widget) {
        widget = m_makers[int(state)] ? m_makers[int(state)]() : make(state);
        addWidget(widget);
    }
    return widget;
}

QWidget *StateStack::make(State state)
{
    switch (state) {
    case State::Waiting:
        return new LoadingIndicator(m_name, this);
    case State::NothingFound:
        return makeEmptyState(state, "empty_generic", tr("Show All"), &StateStack::clearFilterRequested);
    case State::TimedOut:
    case State::Failed:
        return makeEmptyState(state, "empty_generic", tr("Retry"), &StateStack::retryRequested);
    case State::Empty:
    case State::List:
        break;
    }
    return makeEmptyState(state, "empty_generic", {}, nullptr);
}

EmptyStateWidget *StateStack::makeEmptyState(
    State state, const char *picture, const QString &button, void (StateStack::*pressed)())
{
    const Texts &texts = m_texts[int(state)];
    auto *made = new EmptyStateWidget(
        QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(picture)), texts.title, texts.text, this);
    if (pressed)
        connect(made->addAction(button), &QAbstractButton::clicked, this, pressed);
    return made;
}

void StateStack::setDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

void StateStack::paintEvent(QPaintEvent *event)
{
    QStackedWidget::paintEvent(event);
    if (!m_dropTarget)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int inset = KLiteStyle::dpiScaled(6);
    zel::paintDropGround(&painter, rect().adjusted(inset, inset, -inset, -inset), true);
}
