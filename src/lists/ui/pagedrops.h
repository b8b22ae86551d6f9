#pragma once

#include <QObject>
#include <functional>

class ListCargo;
class QDropEvent;
class QWidget;
class StateStack;

/// What is dragged over a page beside its list, or while the list is not shown because it is empty, goes to
/// the list as a whole. GUI thread; owned by the page.
class PageDrops : public QObject
{
    Q_OBJECT
public:
    /// `isReady` says whether there is anything to drop into; empty: always.
    PageDrops(QWidget *page, StateStack *stack, ListCargo *list, std::function<bool()> isReady = {});

protected:
    bool eventFilter(QObject *page, QEvent *event) override;

private:
    bool accept(QDropEvent *event);

    StateStack *m_stack;
    ListCargo *m_list;
    std::function<bool()> m_isReady;
};
