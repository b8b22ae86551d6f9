#include "service/drive/localdrive.h"

#include <cstdio>
#include <sched.h>
#include <sys/mount.h>

using namespace zel::service;

/// drivehelper <write|copy|limit|small> <root> <database>
/// write, copy: works in the drive until it is in the middle, says "middle", and waits to be killed.
/// limit, small: fills up a limit on the size of files, or a small file system mounted at the root; says how
/// a write and a copy ended and what is in the folder then, or "no mount".
namespace {

constexpr qint64 Large = 4 * 1024 * 1024;

bool waitForTheEnd(qint64 done, qint64)
{
    if (done > 0) {
        std::puts("middle");
        std::fflush(stdout);
        ::pause();
    }
    return true;
}

bool mountSmall(const QByteArray &root)
{
    return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("small", root.constData(), "tmpfs", 0, "size=3m") == 0;
}

void limitFiles()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {rlim_t(Large / 2), rlim_t(Large / 2)};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

void workUntilKilled(LocalDrive &drive, const QString &mode)
{
    QBuffer source;
    source.setData(QByteArray(int(Large), 'n'));
    source.open(QIODevice::ReadOnly);
    if (mode == "write"_s)
        (void)drive.write(drive.rootId(), "a"_s, source, {DriveConflict::Replace, -1}, waitForTheEnd);
    else
        (void)drive.copy(drive.resolve("d"_s)->id, drive.rootId(), "n"_s, DriveConflict::Fail, waitForTheEnd);
}

void fill(LocalDrive &drive, const QString &root, bool small)
{
    QBuffer source;
    source.setData(QByteArray(int(small ? Large / 2 : Large), 'n'));
    source.open(QIODevice::ReadOnly);
    if (small)
        (void)drive.write(drive.rootId(), "big"_s, source, {}, {});
    else
        limitFiles();
    source.seek(0);
    const auto written = drive.write(drive.rootId(), "n"_s, source, {}, {});
    const auto copied =
        drive.copy(drive.resolve("big"_s)->id, drive.rootId(), "m"_s, DriveConflict::Fail, {});
    const QStringList names = QDir(root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    std::printf("%d %d %s\n", written ? -1 : int(written.error().kind),
        copied ? -1 : int(copied.error().kind), qPrintable(names.join(QLatin1Char(' '))));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString mode = arguments.value(1);
    const bool small = mode == "small"_s;
    if (small && !mountSmall(arguments.value(2).toUtf8())) {
        std::puts("no mount");
        return 0;
    }
    zel::sqlite::Database database;
    database.open(arguments.value(3));
    LocalDrive drive(arguments.value(2), database);
    if (!drive.prepare())
        return 1;
    if (small || mode == "limit"_s)
        fill(drive, arguments.value(2), small);
    else
        workUntilKilled(drive, mode);
    return 0;
}
