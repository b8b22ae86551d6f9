#include "lists/documentopening.h"

#include <QFileInfo>
#include <QTimer>

DocumentOpening::DocumentOpening(KDocumentOpener *opener, QObject *parent) : QObject(parent), m_opener(opener)
{
    qRegisterMetaType<Problem>();
}

KDocumentOpener *DocumentOpening::opener()
{
    KDocumentOpener *const used = m_opener ? m_opener : KDocumentOpener::instance();
    connect(used, &KDocumentOpener::opened, this, &DocumentOpening::onOpened, Qt::UniqueConnection);
    connect(used, &KDocumentOpener::folderShown, this, &DocumentOpening::onFolderShown, Qt::UniqueConnection);
    connect(
        used, &KDocumentOpener::programsFound, this, &DocumentOpening::onProgramsFound, Qt::UniqueConnection);
    return used;
}

void DocumentOpening::open(const QString &path, const QString &name)
{
    if (begin(path, name))
        opener()->open(path);
}

void DocumentOpening::openWith(const QString &path, const QString &programId)
{
    if (begin(path, {}))
        opener()->openWith(path, programId);
}

bool DocumentOpening::begin(const QString &path, const QString &name)
{
    if (path.isEmpty()) {
        Q_EMIT failed(name, Problem::NotOnThisDevice, path);
        return false;
    }
    if (m_opening.contains(path))
        return false;
    m_opening.insert(path, ++m_turn);
    QTimer::singleShot(Unnoticed, this, [this, path, turn = m_turn] { noticeWaiting(path, turn); });
    return true;
}

void DocumentOpening::noticeWaiting(const QString &path, int turn)
{
    if (m_opening.value(path) != turn)
        return;
    m_waitedFor.append(path);
    Q_EMIT waitedForChanged();
}

void DocumentOpening::cancelWaiting()
{
    const QStringList paths = m_waitedFor; // each is answered at once
    for (const QString &path : paths)
        opener()->cancel(path);
}

void DocumentOpening::reveal(const QString &path)
{
    if (path.isEmpty())
        return;
    m_revealing.insert(path);
    opener()->reveal(path);
}

void DocumentOpening::findPrograms(const QString &path)
{
    m_programsOf = path;
    opener()->findPrograms(path);
}

void DocumentOpening::onProgramsFound(const QString &path, const KProgramList &programs)
{
    if (path.isEmpty() || path != m_programsOf)
        return;
    m_programsOf.clear();
    Q_EMIT programsFound(path, programs);
}

void DocumentOpening::onOpened(const QString &path, KDocumentOpener::Outcome outcome)
{
    using Outcome = KDocumentOpener::Outcome;
    if (m_opening.remove(path) == 0)
        return; // somebody else's
    if (m_waitedFor.removeOne(path))
        Q_EMIT waitedForChanged();
    switch (outcome) {
    case Outcome::Opened:
        Q_EMIT opened(path);
        return;
    case Outcome::Missing:
        return fail(path, Problem::Missing);
    case Outcome::NotReadable:
        return fail(path, Problem::NotReadable);
    case Outcome::NoProgram:
        return fail(path, Problem::NoProgram);
    case Outcome::NoAnswer:
        return fail(path, Problem::NoAnswer);
    case Outcome::Cancelled:
        Q_EMIT cancelled(path);
    }
}

void DocumentOpening::onFolderShown(const QString &path, KDocumentOpener::Outcome outcome)
{
    using Outcome = KDocumentOpener::Outcome;
    if (m_revealing.remove(path) && outcome != Outcome::Opened)
        Q_EMIT revealFailed(path, outcome == Outcome::Missing);
}

void DocumentOpening::fail(const QString &path, Problem problem)
{
    Q_EMIT failed(QFileInfo(path).fileName(), problem, path);
}
