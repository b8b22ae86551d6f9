#pragma once

#include "clouddoc/clouddocument.h"

#include <QStackedWidget>

class EmptyStateWidget;

/// What stands in the middle of the cloud page: the list, or why there is none. GUI thread. The others are
/// made when first shown.
class CloudDocStates : public QStackedWidget
{
    Q_OBJECT
public:
    enum class State { Loading, List, Empty, NothingFound, Offline, Failed };
    Q_ENUM(State)

    explicit CloudDocStates(QWidget *list, QWidget *parent = nullptr);

    State state() const { return m_state; }
    void setState(State state);
    void setProblem(CloudProblem problem); ///< that State::Failed tells
    void setDropTarget(bool target);       ///< a frame around all, while something is dragged over it

Q_SIGNALS:
    void uploadWanted(QWidget *button);
    void newFolderWanted();
    void retryWanted();
    void clearFilterWanted();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *widgetFor(State state);
    QWidget *make(State state);
    EmptyStateWidget *makeEmpty();
    EmptyStateWidget *makeWithRetry(const char *picture);
    void retranslate(State state);

    QWidget *m_widgets[6] = {}; // by State
    State m_state = State::Loading;
    CloudProblem m_problem = CloudProblem::None;
    bool m_dropTarget = false;
};
