#include "clouddoc/clouddoclogic.h"

#include "base/logging.h"
#include "clouddoc/clouddoclink.h"
#include "clouddoc/cloudfolderloader.h"

#include <algorithm>

// Where one is, and reading it. What the service tells is in clouddoclogiclive.cpp, what the user does in
// clouddoclogicactions.cpp.

using zel::clouddoc::NameProblem;

CloudDocLogic::CloudDocLogic(KCloudSvrProxy *proxy, QObject *parent)
    : QObject(parent),
      m_link(new CloudDocLink(proxy, this)),
      m_loader(new CloudFolderLoader(m_link, this)),
      m_documents(new CloudDocModel(this)),
      m_transfers(new CloudTransferModel(this))
{
    qRegisterMetaType<CloudProblem>();
    qRegisterMetaType<CloudConflicts>("CloudConflicts");
    qRegisterMetaType<CloudTransfer>();
    qRegisterMetaType<Operation>();
    m_readAgain.setSingleShot(true);
    connect(&m_readAgain, &QTimer::timeout, this, &CloudDocLogic::reload);
    connect(m_link, &CloudDocLink::reachedChanged, this, &CloudDocLogic::onReached);
    connect(m_link, &CloudDocLink::news, this, &CloudDocLogic::onNews);
    connect(m_loader, &CloudFolderLoader::pageArrived, this, &CloudDocLogic::onPage);
    connect(m_loader, &CloudFolderLoader::finished, this, &CloudDocLogic::onRead);
    connect(m_loader, &CloudFolderLoader::failed, this, &CloudDocLogic::onReadFailed);
}

CloudDocLogic::~CloudDocLogic() = default;

bool CloudDocLogic::isReached() const
{
    return m_link->isReached();
}

QString CloudDocLogic::freeFolderName(const QString &wanted) const
{
    return zel::clouddoc::freeName(
        wanted, true, [this](const QString &name) { return m_documents->hasName(name); });
}

NameProblem CloudDocLogic::checkName(const QString &name, const QString &id) const
{
    const CloudDocument *own = m_documents->find(id);
    return zel::clouddoc::checkName(name, [this, own](const QString &wanted) {
        return !(own && own->name == wanted) && m_documents->hasName(wanted);
    });
}

bool CloudDocLogic::canMoveTo(const QStringList &ids, const QString &folderId) const
{
    const CloudDocument *target = m_documents->find(folderId);
    return !ids.isEmpty() && !isHere(folderId) && !ids.contains(folderId) && (!target || target->folder);
}

int CloudDocLogic::crumbOf(const QString &id) const
{
    const auto found = std::find_if(
        m_crumbs.cbegin(), m_crumbs.cend(), [&id](const CloudCrumb &crumb) { return crumb.id == id; });
    return found == m_crumbs.cend() ? -1 : int(found - m_crumbs.cbegin());
}

bool CloudDocLogic::isHere(const QString &id) const
{
    return id == m_folder.id || (id.isEmpty() && m_crumbs.size() == 1);
}

// As far as it is known before the service is asked.
CloudCrumbs CloudDocLogic::crumbsOf(const QString &id) const
{
    const int crumb = id.isEmpty() ? 0 : crumbOf(id);
    if (crumb >= 0)
        return m_crumbs.mid(0, crumb + 1);
    const CloudDocument *child = m_documents->find(id);
    return child ? m_crumbs + CloudCrumbs{{id, child->name}} : CloudCrumbs();
}

void CloudDocLogic::openRoot()
{
    openFolder({});
}

void CloudDocLogic::openFolder(const QString &id)
{
    if (m_state != State::Idle && isHere(id)) {
        reload();
        return;
    }
    if (m_state != State::Idle) {
        m_back.append(place());
        m_forward.clear();
    }
    go({id, crumbsOf(id)});
}

void CloudDocLogic::up()
{
    if (canGoUp())
        openFolder(m_crumbs.at(m_crumbs.size() - 2).id);
}

void CloudDocLogic::back()
{
    if (m_back.isEmpty())
        return;
    m_forward.append(place());
    go(m_back.takeLast());
}

void CloudDocLogic::forward()
{
    if (m_forward.isEmpty())
        return;
    m_back.append(place());
    go(m_forward.takeLast());
}

void CloudDocLogic::go(const Place &place)
{
    const bool first = m_state == State::Idle;
    const int crumb = crumbOf(place.id);
    m_cameFrom = crumb >= 0 && crumb + 1 < m_crumbs.size() ? m_crumbs.at(crumb + 1).id : QString();
    m_folder = {};
    m_folder.id = place.id;
    m_crumbs = place.crumbs;
    m_loader->stop();
    m_state = State::Loading; // before the rows go, else they would seem to be those of an empty folder
    m_documents->clear();
    read(false);
    if (first)
        watchTransfers();
    Q_EMIT folderChanged();
    Q_EMIT crumbsChanged();
    Q_EMIT historyChanged();
}

void CloudDocLogic::reload()
{
    if (m_state == State::Idle)
        return;
    if (m_loader->isRunning())
        m_stale = true;
    else
        read(m_complete || m_documents->totalCount() > 0);
}

void CloudDocLogic::setSortOrder(CloudSort sort)
{
    m_documents->setSortOrder(sort);
}

// `anew`: what is known stays on view until all has been read.
void CloudDocLogic::read(bool anew)
{
    m_reloading = anew;
    m_complete = m_complete && anew;
    m_stale = false;
    m_fresh.clear();
    m_touched.clear();
    m_readAgain.stop();
    m_reading.start();
    m_loader->start(m_folder.id, m_documents->sortOrder());
    if (anew)
        Q_EMIT stateChanged();
    else
        setState(State::Loading);
}

void CloudDocLogic::setState(State state, CloudProblem problem)
{
    m_state = state;
    m_problem = problem;
    Q_EMIT stateChanged();
}

void CloudDocLogic::onPage(const CloudPage &page, bool first)
{
    if (first) {
        m_folder = page.folder;
        if (page.folder.parentId.isEmpty())
            setCrumbs({{page.folder.id, {}}});
        else if (m_crumbs.isEmpty() || m_crumbs.last() != CloudCrumb{page.folder.id, page.folder.name})
            checkCrumbs();
    }
    if (m_reloading)
        m_fresh += page.documents;
    else
        m_documents->add(withoutTouched(page.documents));
    if (m_state != State::Ready)
        setState(State::Ready);
    if (first)
        readRoom();
}

CloudDocuments CloudDocLogic::withoutTouched(const CloudDocuments &documents) const
{
    if (m_touched.isEmpty())
        return documents;
    CloudDocuments others;
    for (const CloudDocument &document : documents)
        if (!m_touched.contains(document.id))
            others.append(document);
    return others;
}

// What news have told meanwhile is as they told it. Of pages that do not fit nothing is taken for removed.
void CloudDocLogic::takeFresh(bool fits)
{
    CloudDocuments fresh = withoutTouched(m_fresh);
    m_fresh.clear();
    if (!fits) {
        m_documents->add(fresh);
        return;
    }
    for (const QString &id : qAsConst(m_touched))
        if (const CloudDocument *document = m_documents->find(id))
            fresh.append(*document);
    m_documents->replaceAll(fresh);
}

void CloudDocLogic::onRead(bool fits)
{
    const bool again = m_stale || (!fits && !m_reloading);
    if (std::exchange(m_reloading, false))
        takeFresh(fits);
    m_complete = true;
    m_readingTook = m_reading.elapsed();
    m_touched.clear();
    showTransfers();
    Q_EMIT stateChanged();
    if (again)
        readAgainSoon();
}

void CloudDocLogic::onReadFailed(CloudProblem problem)
{
    m_reloading = false;
    m_fresh.clear();
    m_touched.clear();
    if (problem == CloudProblem::NotFound)
        leaveGoneFolder();
    else if (!m_link->isReached())
        setState(State::Offline);
    else if (!m_complete)
        setState(State::Failed, problem);
    else
        setState(State::Ready); // as it was known last
    if (problem != CloudProblem::NotFound && m_link->isReached() && m_documents->totalCount() > 0)
        Q_EMIT readingFailed(problem);
}

void CloudDocLogic::setCrumbs(const CloudCrumbs &crumbs)
{
    if (m_crumbs == crumbs)
        return;
    m_crumbs = crumbs;
    Q_EMIT crumbsChanged();
    Q_EMIT historyChanged();
}

// The way to the folder on view may be another one, or the folder gone.
void CloudDocLogic::checkCrumbs()
{
    m_crumbsStale = m_checkingCrumbs;
    if (m_checkingCrumbs || m_folder.id.isEmpty())
        return;
    m_checkingCrumbs = true;
    m_link->findPath(m_folder.id, [this, id = m_folder.id](const CloudAnswer<CloudCrumbs> &answer) {
        m_checkingCrumbs = false;
        const bool again = std::exchange(m_crumbsStale, false) || id != m_folder.id;
        if (id == m_folder.id && answer)
            setCrumbs(answer.value);
        if (id == m_folder.id && answer.problem == CloudProblem::NotFound)
            leaveGoneFolder();
        else if (again)
            checkCrumbs();
    });
}

void CloudDocLogic::leaveGoneFolder()
{
    const CloudCrumbs above = m_crumbs.mid(0, m_crumbs.size() - 1);
    const QString name = m_crumbs.isEmpty() ? QString() : m_crumbs.last().name;
    const bool root = m_folder.id.isEmpty() || (m_crumbs.size() == 1 && name.isEmpty());
    m_loader->stop();
    if (root) {
        setState(State::Failed, CloudProblem::NotFound);
        return;
    }
    qCInfo(lcCloud, "the folder on view is gone");
    const QString target = above.isEmpty() ? QString() : above.last().id;
    while (!m_back.isEmpty() && m_back.last().id == target)
        m_back.removeLast();
    Q_EMIT folderGone(name);
    go({target, above});
}
