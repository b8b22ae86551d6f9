#include "kfiletrash.h"

#include "base/logging.h"
#include "trashqueue.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

namespace trash = zel::trash;

QPointer<KFileTrash> &replacement()
{
    static QPointer<KFileTrash> fake;
    return fake;
}

KFileTrash::Outcome outcomeOf(const trash::Result &result, const char *what)
{
    if (result.outcome != trash::Outcome::Done)
        qCWarning(lcPlatform) << what << "was not possible:" << result.logText;
    switch (result.outcome) {
    case trash::Outcome::Done:
        return KFileTrash::Outcome::Done;
    case trash::Outcome::Missing:
        return KFileTrash::Outcome::Missing;
    case trash::Outcome::Denied:
        return KFileTrash::Outcome::Denied;
    case trash::Outcome::Exists:
        return KFileTrash::Outcome::Exists;
    case trash::Outcome::Failed:
        break;
    }
    return KFileTrash::Outcome::Failed;
}

} // namespace

KFileTrash *KFileTrash::instance()
{
    if (replacement())
        return replacement();
    // Goes with the application, so that what was asked for last is done before the process ends.
    static QPointer<KFileTrash> real;
    if (!real)
        real = new KFileTrash(QCoreApplication::instance());
    return real;
}

void KFileTrash::setInstance(KFileTrash *trash)
{
    replacement() = trash;
}

zel::platform::TrashQueue *KFileTrash::queue()
{
    if (!m_queue)
        m_queue = new zel::platform::TrashQueue(this);
    return m_queue;
}

void KFileTrash::trash(const QString &path)
{
    queue()->add([path] { return trash::put(path); },
        [this, path](const trash::Result &result) {
            Q_EMIT trashed(path, result.trashId, outcomeOf(result, "putting a file into the trash"));
        });
}

void KFileTrash::restore(const QString &trashId)
{
    queue()->add([trashId] { return trash::restore(trashId); },
        [this, trashId](const trash::Result &result) {
            Q_EMIT restored(trashId, result.path, outcomeOf(result, "restoring a file from the trash"));
        });
}
