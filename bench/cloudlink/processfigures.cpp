#include "processfigures.h"

#include <QDir>
#include <QFile>

namespace {

long figure(const QString &file, const QByteArray &name)
{
    QFile status(file);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').constFirst().toLong();
    }
    return 0;
}

} // namespace

ProcessFigures ProcessFigures::of(pid_t pid)
{
    const QString folder = QStringLiteral("/proc/%1/").arg(pid);
    ProcessFigures figures;
    figures.residentKb = figure(folder + QStringLiteral("status"), "VmRSS");
    const QStringList threads =
        QDir(folder + QStringLiteral("task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &thread : threads)
        figures.wakeUps +=
            figure(folder + QStringLiteral("task/%1/status").arg(thread), "voluntary_ctxt_switches");
    return figures;
}
