#include "clouddoc/ui/clouddocstates.h"

#include "clouddoc/clouddoclogic.h"
#include "clouddoc/cloudproblemtext.h"
#include "widgets/emptystate.h"

#include <QAbstractItemView>
#include <QPushButton>

using Logic = CloudDocLogic;

// A folder that is read this fast follows the one before without anything in between.
static constexpr int QuickLoad = 150; // ms

CloudDocStates::CloudDocStates(CloudDocLogic *logic, QAbstractItemView *list, QWidget *parent)
    : StateStack(list, tr("Loading the folder"), parent), m_logic(logic), m_list(list)
{
    setMaker(State::Empty, [this] { return makeEmpty(); });
    setMaker(State::TimedOut, [this] { return makeOffline(); });
    setTexts(State::NothingFound, tr("Nothing found"),
        tr("No document in this folder has a name that contains these words."));
    m_waitingSoon.setSingleShot(true);
    connect(&m_waitingSoon, &QTimer::timeout, this, [this] {
        m_waitsLong = true;
        follow();
    });
    connect(logic, &Logic::stateChanged, this, &CloudDocStates::follow);
    connect(logic->documents(), &CloudDocModel::countsChanged, this, &CloudDocStates::follow);
}

CloudDocStates::State CloudDocStates::wantedState() const
{
    const CloudDocModel &documents = *m_logic->documents();
    if (documents.rowCount() > 0)
        return State::List;
    switch (m_logic->state()) {
    case Logic::State::Idle:
    case Logic::State::Loading:
        return State::Waiting;
    case Logic::State::Offline:
        return State::TimedOut;
    case Logic::State::Failed:
        return State::Failed;
    case Logic::State::Ready:
        break;
    }
    if (documents.totalCount() > 0 && !documents.filterText().isEmpty())
        return State::NothingFound;
    return m_logic->isComplete() ? State::Empty : State::Waiting;
}

void CloudDocStates::follow()
{
    const State wanted = wantedState();
    const bool keep = wanted == State::Waiting && state() != State::Waiting && !m_waitsLong;
    m_list->setUpdatesEnabled(!keep);
    if (keep) {
        if (!m_waitingSoon.isActive())
            m_waitingSoon.start(QuickLoad);
    } else {
        m_waitingSoon.stop();
        m_waitsLong = false;
        if (wanted == State::Failed)
            setTexts(State::Failed, tr("This folder cannot be shown"),
                zel::clouddoc::problemText(m_logic->problem()));
        setState(wanted);
    }
    Q_EMIT followed();
}

bool CloudDocStates::isStale() const
{
    return state() == State::List && m_logic->state() == Logic::State::Offline;
}

QWidget *CloudDocStates::makeEmpty()
{
    auto *empty = new EmptyStateWidget(QStringLiteral(":/icons_svg/empty_cloud.svg"),
        tr("This folder is empty"), tr("Drop files here, or upload them."), this);
    QPushButton *upload = empty->addAction(tr("Upload"));
    upload->setDefault(true);
    connect(upload, &QAbstractButton::clicked, this, [this, upload] { Q_EMIT uploadRequested(upload); });
    connect(empty->addAction(tr("New Folder")), &QAbstractButton::clicked, this,
        &CloudDocStates::newFolderRequested);
    empty->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(empty, &QWidget::customContextMenuRequested, this,
        [this, empty](const QPoint &pos) { Q_EMIT folderMenuRequested(empty->mapToGlobal(pos)); });
    return empty;
}

QWidget *CloudDocStates::makeOffline()
{
    auto *offline = new EmptyStateWidget(QStringLiteral(":/icons_svg/empty_offline.svg"),
        tr("Cloud documents are not reachable"),
        tr("The cloud service does not answer. The page comes back by itself once it does."), this);
    connect(offline->addAction(tr("Retry")), &QAbstractButton::clicked, this, &StateStack::retryRequested);
    return offline;
}
