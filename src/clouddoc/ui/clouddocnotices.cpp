#include "clouddoc/ui/clouddocnotices.h"

#include "clouddoc/cloudproblemtext.h"
#include "clouddoc/ui/crumbtexts.h"
#include "lists/ui/undooffer.h"
#include "widgets/nametext.h"
#include "widgets/noticearea.h"

#include <QAction>
#include <algorithm>

using namespace zel::clouddoc;

CloudDocNotices::CloudDocNotices(CloudDocLogic *logic, QAction *undo, QWidget *page, QWidget *over)
    : QObject(page),
      m_logic(logic),
      m_area(new NoticeArea(page, over)),
      m_offline(m_area->addBar()),
      m_notice(m_area->addBar()),
      m_undo(new UndoOffer(m_area->addBar(), undo, this))
{
    using Logic = CloudDocLogic;
    connect(logic, &Logic::operationBegun, this, [this](CloudOperation operation) {
        if (operation == CloudOperation::Transfer)
            return; // that is another list
        retire();
    });
    connect(logic, &Logic::undoable, this, &CloudDocNotices::offer);
    connect(logic, &Logic::restored, this, [this](const CloudUndo &done, const QStringList &ids) {
        m_notice->showText(restoredText(done, ids.size()), NoticeBar::Tone::Info);
    });
    connect(logic, &Logic::operationFailed, this,
        [this](CloudOperation operation, CloudProblem problem, int count, const QString &name) {
            tell(failureText(operation, problem, count, zel::shortName(name)));
        });
    connect(logic, &Logic::leftOut, this, [this](int count) {
        tell(tr("%Ln item(s) could not be copied: their names cannot be stored.", nullptr, count));
    });
    connect(logic, &Logic::folderGone, this, [this](const QString &name) {
        tell(tr("The folder “%1” is no longer there.").arg(zel::shortName(name)));
    });
    connect(logic, &Logic::readingFailed, this, [this](CloudProblem problem) { tell(problemText(problem)); });
    connect(m_area, &NoticeArea::coverChanged, this, &CloudDocNotices::coverChanged);
    const auto bars = m_area->findChildren<NoticeBar *>();
    for (NoticeBar *bar : bars) // which goes with its button; the keyboard stays in the page
        connect(bar, &NoticeBar::actionTriggered, page, [page] { page->setFocus(Qt::OtherFocusReason); });
    connect(m_offline, &NoticeBar::actionTriggered, this, [this] {
        m_stale = false; // it is told again when this does not help
        Q_EMIT retryRequested();
    });
}

void CloudDocNotices::tell(const QString &problem)
{
    m_notice->showText(problem, NoticeBar::Tone::Problem);
}

void CloudDocNotices::setStale(bool stale)
{
    const bool changed = std::exchange(m_stale, stale) != stale;
    if (stale && changed) // not again once the user has closed it
        m_offline->showAction(tr("The cloud service is not reachable. What you see may be out of date."),
            tr("Retry"), NoticeBar::Tone::Problem, NoticeBar::Stay);
    else if (!stale)
        m_offline->hide();
}

void CloudDocNotices::retire()
{
    m_undo->withdraw();
    m_area->retire();
}

void CloudDocNotices::undo()
{
    m_undo->undo();
}

std::optional<CloudUndo> CloudDocNotices::offered() const
{
    return m_undo->isOpen() ? std::optional(m_offered) : std::nullopt;
}

void CloudDocNotices::offer(const CloudUndo &undo)
{
    m_offered = undo;
    if (undo.ids.isEmpty()) {
        m_undo->withdraw();
        m_notice->showText(doneText(undo), NoticeBar::Tone::Info);
        return;
    }
    const QString name = undo.operation == CloudOperation::Move ? tr("Undo Move")
        : undo.operation == CloudOperation::Rename              ? tr("Undo Rename")
        : undo.operation == CloudOperation::CreateFolder        ? tr("Undo New Folder")
                                                                : tr("Undo Removal");
    m_undo->offer(doneText(undo), name, [logic = m_logic, undo] { logic->undo(undo); });
}

QString CloudDocNotices::doneText(const CloudUndo &undo) const
{
    const QString name = zel::shortName(undo.firstName);
    const bool one = undo.count == 1 && !name.isEmpty();
    switch (undo.operation) {
    case CloudOperation::CreateFolder:
        return tr("The folder “%1” was created.").arg(name);
    case CloudOperation::Rename:
        return tr("“%1” is now called “%2”.").arg(name, zel::shortName(undo.newName));
    case CloudOperation::Move: {
        const QString folder = zel::shortName(folderName(undo.toFolder));
        if (folder.isEmpty())
            return one ? tr("“%1” was moved.").arg(name) : tr("%Ln item(s) were moved.", nullptr, undo.count);
        return one ? tr("“%1” was moved to “%2”.").arg(name, folder)
                   : tr("%Ln item(s) were moved to “%1”.", nullptr, undo.count).arg(folder);
    }
    default:
        return one ? tr("“%1” was moved to the recycle bin.").arg(name)
                   : tr("%Ln item(s) were moved to the recycle bin.", nullptr, undo.count);
    }
}

QString CloudDocNotices::restoredText(const CloudUndo &undo, int count) const
{
    const QString name = zel::shortName(undo.firstName);
    if (undo.operation == CloudOperation::CreateFolder)
        return tr("The new folder “%1” was removed.").arg(name);
    if (undo.operation == CloudOperation::Rename)
        return tr("“%1” is called “%2” again.").arg(zel::shortName(undo.newName), name);
    const QString folder = zel::shortName(folderName(undo.fromFolder));
    const bool one = undo.count == 1 && !name.isEmpty();
    if (folder.isEmpty())
        return one ? tr("“%1” is back.").arg(name) : tr("%Ln item(s) are back.", nullptr, count);
    return one ? tr("“%1” is back in “%2”.").arg(name, folder)
               : tr("%Ln item(s) are back in “%1”.", nullptr, count).arg(folder);
}

// As far as it is known here: beside what was moved, or on the way to the folder on view.
QString CloudDocNotices::folderName(const QString &id) const
{
    if (const CloudDocument *folder = m_logic->documents()->find(id))
        return folder->name;
    const CloudCrumbs way = m_logic->crumbs();
    const auto step =
        std::find_if(way.cbegin(), way.cend(), [&](const CloudCrumb &one) { return one.id == id; });
    return step == way.cend() ? QString() : namedCrumbs({*step}).constFirst().name;
}
