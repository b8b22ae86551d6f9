#include "launcher/boxtree.h"

namespace {

void copy(const char *variable, const QString &target)
{
    if (!QFile::copy(QFile::decodeName(qgetenv(variable)), target))
        qFatal("cannot copy the file of %s", variable);
}

} // namespace

QString activate(const zeltest::Text &commandLine)
{
    return "zelbox_active_window?="_s + commandLine.text();
}

BoxTree::BoxTree(const QString &libraryFolder) : environment(QProcessEnvironment::systemEnvironment())
{
    const QDir folder(root.path());
    folder.mkdir("bin"_s);
    folder.mkdir("run"_s);
    copy("ZEL_LAUNCHER", folder.filePath("bin/zelbox"_s));
    if (!libraryFolder.isEmpty()) {
        folder.mkpath(libraryFolder);
        copy("ZEL_FAKEBOX", folder.filePath(libraryFolder + "/libzelbox.so"_s));
    }
    set("XDG_RUNTIME_DIR"_s, folder.filePath("run"_s));
    set("FAKEBOX_LOG"_s, folder.filePath("log"_s));
}

// A failed test must not leave a box behind.
BoxTree::~BoxTree()
{
    for (const Record &record : records()) {
        const QString program = QFile::symLinkTarget("/proc/%1/exe"_s.arg(record.pid));
        if (program.startsWith(root.path()))
            ::kill(pid_t(record.pid), SIGKILL);
    }
}

void BoxTree::hold(const QString &variable)
{
    if (::mkfifo(QFile::encodeName(pipePath(variable)).constData(), 0600) != 0)
        qFatal("cannot make a pipe");
    set(variable, pipePath(variable));
}

void BoxTree::letGo(const QString &variable)
{
    ::close(::open(QFile::encodeName(pipePath(variable)).constData(), O_WRONLY | O_CLOEXEC));
}

BoxTree::Process BoxTree::start(const QStringList &arguments)
{
    Process process(new QProcess);
    process->setProcessEnvironment(environment);
    process->start(root.filePath("bin/zelbox"_s), arguments);
    if (!process->waitForStarted(patience))
        qFatal("cannot start the launcher");
    return process;
}

BoxTree::Process BoxTree::startBox(const QStringList &arguments)
{
    Process process = start(arguments);
    const auto isBox = [this, pid = process->processId()] {
        const QVector<Record> all = records();
        return std::any_of(all.begin(), all.end(),
            [pid](const Record &record) { return record.pid == pid && record.what == "start"_s; });
    };
    return QTest::qWaitFor(isBox, patience) ? std::move(process) : nullptr;
}

int BoxTree::run(const QStringList &arguments)
{
    const Process process = start(arguments);
    const bool ended = process->waitForFinished(patience);
    output = process->readAllStandardOutput();
    errors = process->readAllStandardError();
    return ended && process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
}

QVector<BoxTree::Record> BoxTree::records() const
{
    QVector<Record> result;
    QFile file(root.filePath("log"_s));
    if (!file.open(QIODevice::ReadOnly))
        return result;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        result.append({line.section(QLatin1Char(' '), 0, 0).toLongLong(),
            line.section(QLatin1Char(' '), 1, 1), line.section(QLatin1Char(' '), 2)});
    return result;
}

QStringList BoxTree::texts(const zeltest::Text &what) const
{
    QStringList result;
    for (const Record &record : records()) {
        if (record.what == what.text())
            result << record.text;
    }
    return result;
}
