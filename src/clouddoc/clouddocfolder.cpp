#include "clouddoc/clouddocfolder.h"

#include "clouddoc/clouddoclink.h"
#include "clouddoc/clouddocmodel.h"
#include "clouddoc/cloudfolderloader.h"

namespace {

constexpr int LongestPauseMs = 5000;

} // namespace

CloudDocFolder::CloudDocFolder(CloudDocLink *link, CloudDocModel *documents, QObject *parent)
    : QObject(parent), m_link(link), m_documents(documents), m_loader(new CloudFolderLoader(link, this))
{
    m_readAgain.setSingleShot(true);
    connect(&m_readAgain, &QTimer::timeout, this, &CloudDocFolder::reload);
    connect(m_loader, &CloudFolderLoader::pageArrived, this, &CloudDocFolder::onPage);
    connect(m_loader, &CloudFolderLoader::finished, this, &CloudDocFolder::onRead);
    connect(m_loader, &CloudFolderLoader::failed, this, &CloudDocFolder::onReadFailed);
}

bool CloudDocFolder::isReading() const
{
    return m_loader->isRunning();
}

void CloudDocFolder::open(const QString &id)
{
    m_folder = {};
    m_folder.id = id;
    m_loader->stop();
    m_state = State::Loading; // before the rows go, else they would seem to be those of an empty folder
    m_documents->clear();
    read(false);
}

void CloudDocFolder::reload()
{
    if (m_state == State::Idle)
        return;
    if (m_loader->isRunning())
        m_stale = true;
    else
        read(m_complete || m_documents->totalCount() > 0);
}

// `anew`: what is known stays on view until all has been read.
void CloudDocFolder::read(bool anew)
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

void CloudDocFolder::setState(State state, CloudProblem problem)
{
    m_state = state;
    m_problem = problem;
    Q_EMIT stateChanged();
}

void CloudDocFolder::onPage(const CloudPage &page, bool first)
{
    if (first) {
        m_folder = page.folder;
        Q_EMIT documentArrived();
    }
    if (m_reloading)
        m_fresh += page.documents;
    else
        m_documents->add(withoutTouched(page.documents));
    if (m_state != State::Ready)
        setState(State::Ready);
}

CloudDocuments CloudDocFolder::withoutTouched(const CloudDocuments &documents) const
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
void CloudDocFolder::takeFresh(bool fits)
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

void CloudDocFolder::onRead(bool fits)
{
    const bool again = m_stale || (!fits && !m_reloading);
    if (std::exchange(m_reloading, false))
        takeFresh(fits);
    m_complete = true;
    m_readingTook = m_reading.elapsed();
    m_touched.clear();
    Q_EMIT readEnded();
    Q_EMIT stateChanged();
    if (again)
        readAgainSoon();
}

void CloudDocFolder::onReadFailed(CloudProblem problem)
{
    m_reloading = false;
    m_fresh.clear();
    m_touched.clear();
    if (problem == CloudProblem::NotFound) {
        Q_EMIT missing();
        return;
    }
    if (!m_link->isReached())
        setState(State::Offline);
    else if (!m_complete)
        setState(State::Failed, problem);
    else
        setState(State::Ready); // as it was known last
    if (m_link->isReached() && m_documents->totalCount() > 0)
        Q_EMIT readingFailed(problem);
}

void CloudDocFolder::interrupt()
{
    m_loader->stop();
    m_readAgain.stop();
    m_reloading = false;
    setState(State::Offline);
}

void CloudDocFolder::stop()
{
    m_loader->stop();
}

void CloudDocFolder::setMissing()
{
    setState(State::Failed, CloudProblem::NotFound);
}

// Where thousands of files come or go, that is told again and again: reading takes half of the time at most.
void CloudDocFolder::readAgainSoon()
{
    if (m_loader->isRunning())
        m_stale = true;
    else if (!m_readAgain.isActive())
        m_readAgain.start(int(qBound<qint64>(0, 2 * m_readingTook - m_reading.elapsed(), LongestPauseMs)));
}

void CloudDocFolder::takePresent(const CloudDocuments &documents)
{
    if (isRootUnknown() && !documents.isEmpty()) { // they may lie in it
        m_stale = true;
        return;
    }
    CloudDocuments here;
    QStringList elsewhere;
    for (const CloudDocument &document : documents) {
        if (document.id == m_folder.id)
            m_folder = document;
        if (m_loader->isRunning())
            m_touched.insert(document.id);
        if (document.parentId == m_folder.id && !document.parentId.isEmpty())
            here.append(document);
        else
            elsewhere.append(document.id);
    }
    m_documents->remove(elsewhere);
    m_documents->add(here);
}

void CloudDocFolder::takeGone(const QStringList &ids)
{
    if (m_loader->isRunning())
        m_touched.unite(QSet<QString>(ids.cbegin(), ids.cend()));
    m_documents->remove(ids);
}
