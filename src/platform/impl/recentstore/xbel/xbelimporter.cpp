#include "xbelimporter.h"

#include "listfile.h"

#include "base/logging.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>

namespace zel::recent {
namespace {

constexpr int TokensAtOnce = 20000; // some ten milliseconds
constexpr qint64 ClockTolerance = 24LL * 3600 * 1000;

} // namespace

struct XbelImporter::Reading
{
    XbelSource source;
    QFile file;
    FileStamp stamp;
    QElapsedTimer watch;
    std::unique_ptr<XbelReader> reader;
};

XbelImporter::XbelImporter(const RecentPlaces &places, QHash<QString, FileStamp> known, QObject *parent,
    std::chrono::milliseconds clearedAfter)
    : QObject(parent), m_places(places), m_known(std::move(known)), m_clearedAfter(clearedAfter)
{
    connect(&m_watcher, &XbelWatcher::changed, this, &XbelImporter::scan);
    m_clearedCheck.setSingleShot(true);
    connect(&m_clearedCheck, &QTimer::timeout, this, &XbelImporter::scan);
}

XbelImporter::~XbelImporter() = default;

void XbelImporter::stop()
{
    m_stopped = true;
    m_clearedCheck.stop();
    m_reading.reset();
    m_queue.clear();
}

void XbelImporter::scan()
{
    if (m_stopped)
        return;
    if (m_reading) {
        m_scanAgain = true;
        return;
    }
    m_scanAgain = false;
    const QVector<XbelSource> sources = xbelSources(m_places);
    watch(sources);
    findGone(sources);
    findCleared(sources);
    queueChanged(sources);
    next();
}

void XbelImporter::watch(const QVector<XbelSource> &sources)
{
    QStringList files;
    QStringList folders{m_places.sandboxRoot};
    for (const XbelSource &source : sources) {
        files.append(source.file);
        folders.append(QFileInfo(source.file).path());
        if (const QString sandbox = sandboxFolder(m_places, source.name); !sandbox.isEmpty())
            folders.append(sandbox);
    }
    m_watcher.watch(files, folders);
}

void XbelImporter::findGone(const QVector<XbelSource> &sources)
{
    if (!QFileInfo(m_places.sandboxRoot).isReadable())
        return;
    const QStringList names = m_known.keys();
    for (const QString &name : names) {
        const QString folder = sandboxFolder(m_places, name);
        const auto same = [&](const XbelSource &source) { return source.name == name; };
        if (folder.isEmpty() || std::any_of(sources.cbegin(), sources.cend(), same)
            || QFileInfo::exists(folder))
            continue;
        m_known.remove(name);
        XbelImport import;
        import.source = name;
        import.intact = true;
        import.gone = true;
        Q_EMIT imported(import);
    }
}

void XbelImporter::findCleared(const QVector<XbelSource> &sources)
{
    std::optional<std::chrono::nanoseconds> next;
    for (const XbelSource &source : sources) {
        const std::optional<FileStamp> stamp = stampOfCleared(source.file);
        if (!stamp || m_known.value(source.name) == *stamp) {
            m_cleared.remove(source.name);
            continue;
        }
        if (!m_cleared.contains(source.name))
            m_cleared.insert(source.name, QDeadlineTimer(m_clearedAfter));
        const QDeadlineTimer until = m_cleared.value(source.name);
        if (until.hasExpired())
            tellNothing(source, *stamp);
        else
            next = std::min(next.value_or(m_clearedAfter), until.remainingTimeAsDuration());
    }
    if (next)
        m_clearedCheck.start(std::chrono::ceil<std::chrono::milliseconds>(*next));
}

void XbelImporter::tellNothing(const XbelSource &source, const FileStamp &stamp)
{
    m_cleared.remove(source.name);
    m_known.insert(source.name, stamp);
    qCInfo(lcRecent) << "a recently-used list was cleared";
    XbelImport import;
    import.source = source.name;
    import.stamp = stamp;
    import.intact = true;
    Q_EMIT imported(import);
}

void XbelImporter::queueChanged(const QVector<XbelSource> &sources)
{
    for (const XbelSource &source : sources) {
        const auto stamp = stampOf(source.file);
        if (stamp && m_known.value(source.name) != *stamp && !m_cleared.contains(source.name))
            m_queue.append(source);
    }
}

void XbelImporter::next()
{
    while (!m_stopped && !m_queue.isEmpty()) {
        if (begin(m_queue.takeFirst())) {
            QMetaObject::invokeMethod(this, &XbelImporter::readOn, Qt::QueuedConnection);
            return;
        }
    }
    if (m_stopped)
        return;
    Q_EMIT scanned();
    if (m_scanAgain)
        scan();
}

bool XbelImporter::begin(const XbelSource &source)
{
    m_reading = std::make_unique<Reading>();
    m_reading->source = source;
    m_reading->watch.start();
    const ListFileState state = openListFile(source.file, m_reading->file, m_reading->stamp);
    if (state != ListFileState::Opened) {
        if (state == ListFileState::Unusable)
            logDamage(source.name, QStringLiteral("cannot be read"));
        m_reading.reset();
        return false;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const qint64 written = std::min(m_reading->stamp.mtimeNs / 1000000, now);
    m_reading->reader = std::make_unique<XbelReader>(m_reading->file, now + ClockTolerance, written);
    return true;
}

void XbelImporter::readOn()
{
    if (!m_reading)
        return;
    if (m_reading->reader->read(TokensAtOnce) == XbelReader::State::Reading)
        QMetaObject::invokeMethod(this, &XbelImporter::readOn, Qt::QueuedConnection);
    else
        finish();
}

void XbelImporter::finish()
{
    const std::unique_ptr<Reading> reading = std::move(m_reading);
    const bool steady = stampOf(reading->file) == reading->stamp;
    XbelImport import;
    import.source = reading->source.name;
    import.entries = reading->reader->takeEntries();
    import.intact = steady && reading->reader->read(0) == XbelReader::State::Intact;
    if (steady) {
        import.stamp = reading->stamp;
        m_known.insert(import.source, reading->stamp);
    }
    const QString problem = reading->reader->problem();
    if (problem.isEmpty())
        m_damageLogged.removeAll(import.source);
    else if (steady)
        logDamage(import.source, problem);
    qCInfo(lcRecent) << "read a recently-used list:" << import.entries.size() << "entries in"
                     << reading->watch.elapsed() << "ms";
    Q_EMIT imported(import);
    next();
}

void XbelImporter::logDamage(const QString &source, const QString &problem)
{
    if (m_damageLogged.contains(source))
        return;
    m_damageLogged.append(source);
    const char *which = source == DesktopSourceName ? "the desktop's" : "a sandboxed application's";
    qCWarning(lcRecent).noquote() << "recently-used list," << which << "is damaged," << problem
                                  << "- what came before counts";
}

} // namespace zel::recent
