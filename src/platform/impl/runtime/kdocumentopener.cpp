#include "kdocumentopener.h"

#include "base/boundedjobs.h"
#include "base/logging.h"
#include "base/posix/uniquefd.h"
#include "desktopopen.h"
#include "programs/programsmodule.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPointer>
#include <QUrl>

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Outcome = KDocumentOpener::Outcome;

constexpr std::chrono::seconds Patience(15); // an automounter may need some

QPointer<KDocumentOpener> &replacement()
{
    static QPointer<KDocumentOpener> opener;
    return opener;
}

// Never destroyed: jobs may end while static objects go.
zel::BoundedJobs &jobs()
{
    static auto *all = new zel::BoundedJobs(Patience);
    return *all;
}

QString folderOf(const QString &path)
{
    return QFileInfo(path).path();
}

// Links count themselves: a dangling one can be shown all the same.
bool isThere(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

QDBusMessage showItemsCall(const QString &path)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"), QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("ShowItems"));
    const QStringList items{QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())};
    call << items << QString(); // no start-up notification id
    return call;
}

Outcome launch(const QString &programId, const QString &path)
{
    const zel::platform::ProgramsModule *module = zel::platform::programsModule();
    const QString problem = module ? module->launch(programId, path) : QStringLiteral("no module for it");
    if (problem.isEmpty())
        return Outcome::Opened;
    qCWarning(lcPlatform) << programId << "did not start:" << problem;
    return Outcome::NoProgram;
}

// Nothing when it cannot be read at once.
std::optional<QByteArray> beginningOf(const QString &path)
{
    const zel::posix::UniqueFd fd(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    std::array<char, 16 * 1024> bytes; // as much as the rules for contents look at
    const ssize_t size = fd ? ::read(fd.get(), bytes.data(), bytes.size()) : -1;
    return size < 0 ? std::nullopt : std::optional(QByteArray(bytes.data(), int(size)));
}

// The type as the desktop sees it: by the name, and where that does not tell by the content. The database
// does not read the file itself: it would keep all other threads out meanwhile, on a dead mount for ever.
QString typeOf(const QString &path)
{
    struct stat status = {};
    const bool isThere = ::stat(QFile::encodeName(path).constData(), &status) == 0;
    if (isThere && S_ISDIR(status.st_mode))
        return QStringLiteral("inode/directory");
    if (isThere && !S_ISREG(status.st_mode))
        return {};
    const auto data = isThere ? beginningOf(path) : std::nullopt;
    const QMimeDatabase database;
    return data ? database.mimeTypeForFileNameAndData(path, *data).name()
                : database.mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
}

KProgramList programsFor(const QString &path)
{
    const zel::platform::ProgramsModule *module = zel::platform::programsModule();
    const QString type = typeOf(path);
    return module && !type.isEmpty() ? module->programsFor(type) : KProgramList();
}

// Then `then(opener's thread, result)`; with `late` when the work did not end in time.
template <typename Result>
void runApart(KDocumentOpener *opener, const QString &path, std::function<Result()> work, Result late,
    std::function<void(Result)> then)
{
    const auto result = std::make_shared<Result>(late);
    jobs().start(
        path, [work = std::move(work), result] { *result = work(); }, opener,
        [=](bool inTime) { then(inTime ? *result : late); });
}

// Why it cannot be opened; none: it is there and can be read.
std::optional<Outcome> problemOf(const QString &path)
{
    if (::access(QFile::encodeName(path).constData(), R_OK) == 0)
        return {};
    return errno == ENOENT || errno == ENOTDIR ? Outcome::Missing : Outcome::NotReadable;
}

} // namespace

/// One document that is to be opened. The job has it, too, and asks it before each program that it starts:
/// nothing starts once the document has been reported as not answering, or nobody wants it any more.
struct KDocumentOpener::Attempt
{
    const QString path;
    const QDeadlineTimer deadline{Patience};
    std::atomic_bool cancelled = false;

    explicit Attempt(const QString &document) : path(document) { }
    bool isOver() const { return cancelled || deadline.hasExpired(); }
};

namespace {

// The programs that the desktop recommends, one after the other until one starts.
Outcome openWithRecommended(const QString &path, const std::function<bool()> &isOver)
{
    if (const auto problem = problemOf(path))
        return *problem;
    const KProgramList programs = programsFor(path);
    for (const KProgram &program : programs) {
        if (isOver())
            return Outcome::NoAnswer;
        if (launch(program.id, path) == Outcome::Opened)
            return Outcome::Opened;
    }
    return Outcome::NoProgram;
}

// The desktop's own opener may know more than the lists of programs say.
void openBySomeProgram(KDocumentOpener *opener, const QString &path, const std::function<bool()> &isOver,
    const std::function<void(Outcome)> &then)
{
    runApart<Outcome>(
        opener, path, [=] { return openWithRecommended(path, isOver); }, Outcome::NoAnswer,
        [=](Outcome outcome) {
            if (outcome != Outcome::NoProgram || isOver())
                return then(outcome);
            zel::platform::openByDesktop(
                path, opener, [then](bool opened) { then(opened ? Outcome::Opened : Outcome::NoProgram); });
        });
}

void openFolderOf(KDocumentOpener *opener, const QString &path)
{
    const QDeadlineTimer deadline(Patience);
    openBySomeProgram(
        opener, folderOf(path), [deadline] { return deadline.hasExpired(); },
        [=](Outcome outcome) { Q_EMIT opener->folderShown(path, outcome); });
}

void select(KDocumentOpener *opener, const QString &path)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolderOf(opener, path);
        return;
    }
    constexpr std::chrono::milliseconds FileManagerPatience = std::chrono::seconds(3);
    auto *watcher = new QDBusPendingCallWatcher(
        bus.asyncCall(showItemsCall(path), int(FileManagerPatience.count())), opener);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, opener, [=] {
        watcher->deleteLater();
        if (watcher->isError())
            openFolderOf(opener, path);
        else
            Q_EMIT opener->folderShown(path, Outcome::Opened);
    });
}

enum class Place { There, FolderOnly, Nowhere, NoAnswer };

Place placeOf(const QString &path)
{
    if (isThere(path))
        return Place::There;
    return isThere(folderOf(path)) ? Place::FolderOnly : Place::Nowhere;
}

} // namespace

KDocumentOpener *KDocumentOpener::instance()
{
    if (replacement())
        return replacement();
    static KDocumentOpener opener;
    return &opener;
}

void KDocumentOpener::setInstance(KDocumentOpener *opener)
{
    replacement() = opener;
}

void KDocumentOpener::open(const QString &path)
{
    const auto attempt = begin(path);
    openBySomeProgram(
        this, path, [attempt] { return attempt->isOver(); },
        [this, attempt](Outcome outcome) { settle(attempt, outcome); });
}

void KDocumentOpener::openWith(const QString &path, const QString &programId)
{
    const auto attempt = begin(path);
    runApart<Outcome>(
        this, path,
        [=] {
            if (const auto problem = problemOf(path))
                return *problem;
            return attempt->isOver() ? Outcome::NoAnswer : launch(programId, path);
        },
        Outcome::NoAnswer, [this, attempt](Outcome outcome) { settle(attempt, outcome); });
}

void KDocumentOpener::cancel(const QString &path)
{
    const auto attempts = m_attempts; // answering takes them away
    for (const auto &attempt : attempts) {
        if (attempt->path != path)
            continue;
        attempt->cancelled = true;
        settle(attempt, Outcome::Cancelled);
    }
}

std::shared_ptr<KDocumentOpener::Attempt> KDocumentOpener::begin(const QString &path)
{
    return m_attempts.emplace_back(std::make_shared<Attempt>(path));
}

void KDocumentOpener::settle(const std::shared_ptr<Attempt> &attempt, Outcome outcome)
{
    if (std::erase(m_attempts, attempt) > 0)
        Q_EMIT opened(attempt->path, outcome);
}

void KDocumentOpener::findPrograms(const QString &path)
{
    runApart<KProgramList>(
        this, path, [path] { return programsFor(path); }, {},
        [this, path](const KProgramList &programs) { Q_EMIT programsFound(path, programs); });
}

void KDocumentOpener::reveal(const QString &path)
{
    runApart<Place>(
        this, path, [path] { return placeOf(path); }, Place::NoAnswer,
        [this, path](Place place) {
            switch (place) {
            case Place::There:
                select(this, path);
                return;
            case Place::FolderOnly:
                openFolderOf(this, path);
                return;
            case Place::Nowhere:
                Q_EMIT folderShown(path, Outcome::Missing);
                return;
            case Place::NoAnswer:
                Q_EMIT folderShown(path, Outcome::NoAnswer);
                return;
            }
        });
}
