#include "clouddoc/clouddocnavigator.h"

#include "base/logging.h"
#include "clouddoc/clouddocfolder.h"
#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocmodel.h"

#include <algorithm>

CloudDocNavigator::CloudDocNavigator(
    CloudDocLink *link, CloudDocFolder *folder, const CloudDocModel *documents, QObject *parent)
    : QObject(parent), m_link(link), m_folder(folder), m_documents(documents)
{
    connect(folder, &CloudDocFolder::documentArrived, this, &CloudDocNavigator::onDocumentArrived);
    connect(folder, &CloudDocFolder::missing, this, &CloudDocNavigator::leaveGoneFolder);
}

int CloudDocNavigator::crumbOf(const QString &id) const
{
    const auto found = std::find_if(
        m_crumbs.cbegin(), m_crumbs.cend(), [&id](const CloudCrumb &crumb) { return crumb.id == id; });
    return found == m_crumbs.cend() ? -1 : int(found - m_crumbs.cbegin());
}

bool CloudDocNavigator::isHere(const QString &id) const
{
    return id == m_folder->id() || (id.isEmpty() && m_crumbs.size() == 1);
}

// As far as it is known before the service is asked.
CloudCrumbs CloudDocNavigator::crumbsOf(const QString &id) const
{
    const int crumb = id.isEmpty() ? 0 : crumbOf(id);
    if (crumb >= 0)
        return m_crumbs.mid(0, crumb + 1);
    const CloudDocument *child = m_documents->find(id);
    return child ? m_crumbs + CloudCrumbs{{id, child->name}} : CloudCrumbs();
}

CloudDocNavigator::Place CloudDocNavigator::place() const
{
    return {m_folder->id(), m_crumbs};
}

void CloudDocNavigator::open(const QString &id)
{
    const bool idle = m_folder->state() == CloudDocFolder::State::Idle;
    if (!idle && isHere(id)) {
        m_folder->reload();
        return;
    }
    if (!idle) {
        m_back.append(place());
        m_forward.clear();
    }
    go({id, crumbsOf(id)});
}

void CloudDocNavigator::up()
{
    if (canGoUp())
        open(m_crumbs.at(m_crumbs.size() - 2).id);
}

void CloudDocNavigator::back()
{
    if (m_back.isEmpty())
        return;
    m_forward.append(place());
    go(m_back.takeLast());
}

void CloudDocNavigator::forward()
{
    if (m_forward.isEmpty())
        return;
    m_back.append(place());
    go(m_forward.takeLast());
}

void CloudDocNavigator::go(const Place &place)
{
    const int crumb = crumbOf(place.id);
    m_cameFrom = crumb >= 0 && crumb + 1 < m_crumbs.size() ? m_crumbs.at(crumb + 1).id : QString();
    m_crumbs = place.crumbs;
    m_folder->open(place.id);
    Q_EMIT left();
    Q_EMIT crumbsChanged();
    Q_EMIT historyChanged();
}

void CloudDocNavigator::onDocumentArrived()
{
    const CloudDocument &folder = m_folder->document();
    if (folder.parentId.isEmpty())
        setCrumbs({{folder.id, {}}});
    else if (m_crumbs.isEmpty() || m_crumbs.last() != CloudCrumb{folder.id, folder.name})
        checkCrumbs();
}

void CloudDocNavigator::setCrumbs(const CloudCrumbs &crumbs)
{
    if (m_crumbs == crumbs)
        return;
    m_crumbs = crumbs;
    Q_EMIT crumbsChanged();
    Q_EMIT historyChanged();
}

void CloudDocNavigator::checkCrumbs()
{
    m_crumbsStale = m_checkingCrumbs;
    if (m_checkingCrumbs || m_folder->isRootUnknown())
        return;
    m_checkingCrumbs = true;
    m_link->findPath(m_folder->id(), [this, id = m_folder->id()](const CloudAnswer<CloudCrumbs> &answer) {
        m_checkingCrumbs = false;
        const bool here = id == m_folder->id();
        const bool again = std::exchange(m_crumbsStale, false) || !here;
        if (here && answer)
            setCrumbs(answer.value);
        if (here && answer.problem == CloudProblem::NotFound)
            leaveGoneFolder();
        else if (again)
            checkCrumbs();
    });
}

void CloudDocNavigator::leaveGoneFolder()
{
    const CloudCrumbs above = m_crumbs.mid(0, m_crumbs.size() - 1);
    const QString name = m_crumbs.isEmpty() ? QString() : m_crumbs.last().name;
    const bool root = m_folder->isRootUnknown() || (m_crumbs.size() == 1 && name.isEmpty());
    m_folder->stop();
    if (root) {
        m_folder->setMissing();
        return;
    }
    qCInfo(lcCloud, "the folder on view is gone");
    const QString target = above.isEmpty() ? QString() : above.last().id;
    while (!m_back.isEmpty() && m_back.last().id == target)
        m_back.removeLast();
    Q_EMIT folderGone(name);
    go({target, above});
}
