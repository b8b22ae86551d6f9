#include "clouddoc/ui/clouddocstates.h"

#include "clouddoc/cloudproblemtext.h"
#include "klitestyle.h"
#include "widgets/emptystate.h"
#include "widgets/loadingindicator.h"
#include "widgets/rowpaint.h"

#include <QEvent>
#include <QPainter>
#include <QPushButton>

CloudDocStates::CloudDocStates(QWidget *list, QWidget *parent) : QStackedWidget(parent)
{
    m_widgets[int(State::List)] = list;
    addWidget(list);
    setCurrentWidget(widgetFor(m_state));
}

void CloudDocStates::setState(State state)
{
    if (m_state == state)
        return;
    const QWidget *focused = window()->focusWidget(); // our own focusWidget() may have lost it long ago
    const bool hadFocus = focused == currentWidget() || currentWidget()->isAncestorOf(focused);
    m_state = state;
    setCurrentWidget(widgetFor(state));
    if (hadFocus)
        widgetFor(state)->setFocus(Qt::OtherFocusReason); // the keyboard stays in the page
}

void CloudDocStates::setProblem(CloudProblem problem)
{
    m_problem = problem;
    if (m_widgets[int(State::Failed)])
        retranslate(State::Failed);
}

QWidget *CloudDocStates::widgetFor(State state)
{
    QWidget *&widget = m_widgets[int(state)];
    if (!widget) {
        widget = make(state);
        addWidget(widget);
        retranslate(state);
    }
    return widget;
}

QWidget *CloudDocStates::make(State state)
{
    switch (state) {
    case State::Loading:
        return new LoadingIndicator(tr("Loading the folder"), this);
    case State::List:
        break; // there from the beginning
    case State::Empty:
        return makeEmpty();
    case State::NothingFound: {
        auto *nothing = new EmptyStateWidget(QStringLiteral(":/icons_svg/empty_generic.svg"), {}, {}, this);
        connect(nothing->addAction(tr("Clear")), &QAbstractButton::clicked, this,
            &CloudDocStates::clearFilterWanted);
        return nothing;
    }
    case State::Offline:
        return makeWithRetry("empty_offline");
    case State::Failed:
        return makeWithRetry("empty_generic");
    }
    return m_widgets[int(State::List)];
}

EmptyStateWidget *CloudDocStates::makeEmpty()
{
    auto *empty = new EmptyStateWidget(QStringLiteral(":/icons_svg/empty_cloud.svg"), {}, {}, this);
    QPushButton *upload = empty->addAction(tr("Upload"));
    upload->setDefault(true);
    connect(upload, &QAbstractButton::clicked, this, [this, upload] { Q_EMIT uploadWanted(upload); });
    connect(empty->addAction(tr("New Folder")), &QAbstractButton::clicked, this,
        &CloudDocStates::newFolderWanted);
    return empty;
}

EmptyStateWidget *CloudDocStates::makeWithRetry(const char *picture)
{
    auto *state =
        new EmptyStateWidget(QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(picture)), {}, {}, this);
    connect(state->addAction(tr("Retry")), &QAbstractButton::clicked, this, &CloudDocStates::retryWanted);
    return state;
}

void CloudDocStates::retranslate(State state)
{
    auto *widget = qobject_cast<EmptyStateWidget *>(m_widgets[int(state)]);
    if (!widget)
        return;
    switch (state) {
    case State::Loading:
    case State::List:
        return;
    case State::Empty:
        return widget->setTexts(tr("This folder is empty"), tr("Drop files here, or upload them."));
    case State::NothingFound:
        return widget->setTexts(
            tr("Nothing found"), tr("No document in this folder has a name that contains these words."));
    case State::Offline:
        return widget->setTexts(tr("Cloud documents are not reachable"),
            tr("The cloud service does not answer. The page comes back by itself once it does."));
    case State::Failed:
        return widget->setTexts(tr("This folder cannot be shown"), zel::clouddoc::problemText(m_problem));
    }
}

void CloudDocStates::changeEvent(QEvent *event)
{
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        for (int state = 0; state <= int(State::Failed); ++state)
            retranslate(State(state));
    }
}

void CloudDocStates::setDropTarget(bool target)
{
    m_dropTarget = target;
    update();
}

void CloudDocStates::paintEvent(QPaintEvent *event)
{
    QStackedWidget::paintEvent(event);
    if (!m_dropTarget)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int inset = KLiteStyle::dpiScaled(6);
    zel::paintDropGround(&painter, rect().adjusted(inset, inset, -inset, -inset), true);
}
